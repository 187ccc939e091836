// The host's threads, as Qt sees them.
#ifndef VELNOR_API_HOST_THREAD_H
#define VELNOR_API_HOST_THREAD_H

#include "api/application_gate.h"

namespace velnor {

class EventDispatcher;

// Gives the thread an event dispatcher of ours, where it has none. Qt's own would take over the
// main context of a GLib host.
void ensureThreadHasDispatcher();

// The host's thread during a call. Qt's font cache limits its size with a timer on the thread that
// uses it. A thread without a dispatcher cannot have timers: Qt would write a warning to standard
// error, and the cache would grow. Such a thread has a dispatcher of ours during the call, at the
// end of which its due timers run. They are the cache's: between calls the host can start none here.
//
// Between calls the thread has no dispatcher, as before. A QGuiApplication or an event loop that
// the host makes on it later gets the one that Qt chooses.
class HostThread {
public:
    // Throws where the process has begun to end.
    HostThread();
    ~HostThread();
    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;

private:
    CallInFlight call;
    EventDispatcher* given = nullptr;
};

} // namespace velnor

#endif
