// The host's thread during a call of the library.
#ifndef VELNOR_API_HOST_THREAD_H
#define VELNOR_API_HOST_THREAD_H

namespace velnor {

// Qt's font cache keeps itself small by a timer on the thread that uses it. A host's thread has no
// event loop: Qt would complain on standard error, and the cache would grow for as long as the
// thread lives. So the thread gets a dispatcher, where it has none, and timers that are due run at
// the end of a call.
class HostThread {
public:
    HostThread();
    ~HostThread();
    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;
};

} // namespace velnor

#endif
