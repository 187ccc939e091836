// Keeps the calls of hosts apart from the making of the library's own application, and from the end of
// the process. Qt shows its application to every thread before it is complete, and painting asks it
// for its font; at the end of the process Qt destroys what painting uses.
#ifndef VELNOR_API_APPLICATION_GATE_H
#define VELNOR_API_APPLICATION_GATE_H

namespace velnor {

// While this lives, exit waits, for some seconds at most.
class FlightCount {
public:
    FlightCount();
    ~FlightCount();
    FlightCount(const FlightCount&) = delete;
    FlightCount& operator=(const FlightCount&) = delete;

    static bool isOnThisThread();
};

// While this lives, the application is neither made nor ended. Any number of threads hold it at once;
// no thread holds it twice.
class CallInFlight {
public:
    CallInFlight();
    ~CallInFlight();
    CallInFlight(const CallInFlight&) = delete;
    CallInFlight& operator=(const CallInFlight&) = delete;

    // True where the process has begun to end: the call must fail.
    bool isRefused() const { return refused; }

private:
    FlightCount count; // before the question whether the process ends
    bool refused;
    bool held; // not by the thread that ends the application, whose listeners may call
};

// While this lives, no call is in flight: those that were have ended, others wait.
class ApplicationChange {
public:
    ApplicationChange();
    ~ApplicationChange();
    ApplicationChange(const ApplicationChange&) = delete;
    ApplicationChange& operator=(const ApplicationChange&) = delete;

private:
    FlightCount count;
};

} // namespace velnor

#endif
