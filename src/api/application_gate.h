// Keeps the calls of hosts and the making of the library's own application apart. Qt shows its
// application to every thread before it is complete, and painting asks it for its font.
#ifndef VELNOR_API_APPLICATION_GATE_H
#define VELNOR_API_APPLICATION_GATE_H

namespace velnor {

// While this lives, the application is neither made nor ended. Any number of threads hold it at once;
// no thread holds it twice.
class CallInFlight {
public:
    CallInFlight();
    ~CallInFlight();
    CallInFlight(const CallInFlight&) = delete;
    CallInFlight& operator=(const CallInFlight&) = delete;

private:
    bool held; // not by the thread that ends the application, whose listeners may call
};

// While this lives, no call is in flight: those that were have ended, others wait.
class ApplicationChange {
public:
    ApplicationChange();
    ~ApplicationChange();
    ApplicationChange(const ApplicationChange&) = delete;
    ApplicationChange& operator=(const ApplicationChange&) = delete;
};

} // namespace velnor

#endif
