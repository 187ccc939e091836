// The host's threads, as Qt sees them.
#ifndef VELNOR_API_HOST_THREAD_H
#define VELNOR_API_HOST_THREAD_H

#include "api/application_gate.h"

namespace velnor {

// Gives the thread an event dispatcher of ours, where it has none. Qt's own would take over the
// main context of a GLib host.
void ensureThreadHasDispatcher();

// The host's thread during a call. Qt's font cache keeps itself small by a timer on the thread that
// uses it; a host's thread has no event loop, so Qt would complain on standard error and the cache
// would grow for as long as the thread lives. Here the timers that are due run at the end of a call.
class HostThread {
public:
    // Throws where the process has begun to end.
    HostThread();
    ~HostThread();
    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;

private:
    CallInFlight call;
};

} // namespace velnor

#endif
