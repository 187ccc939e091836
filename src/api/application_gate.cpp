#include "api/application_gate.h"

#include <QFont>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include <pthread.h>

namespace {

// Threads that draw without a pause would never let a change in otherwise, as std::shared_mutex does.
pthread_rwlock_t gate = PTHREAD_RWLOCK_WRITER_NONRECURSIVE_INITIALIZER_NP;

enum class Exit { NotBegun, Waiting, Waited };

std::atomic<int> inFlight{0};
std::atomic<Exit> processExit{Exit::NotBegun};
thread_local int inFlightHere = 0; // not 0 where exit is called inside a call, by a signal handler

// Qt's static objects are destroyed after this. A call that takes longer goes on all the same: it may
// wait for what the exiting thread holds. The time is one for all handlers.
void waitForCallsInFlight() {
    using Clock = std::chrono::steady_clock;
    static const auto end = Clock::now() + std::chrono::seconds(10);
    const auto mustWait = [] { return inFlight > inFlightHere && Clock::now() < end; };
    do {
        processExit = Exit::Waiting;
        while (mustWait()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        processExit = Exit::Waited;
        // A call that has seen the wait is to have it.
    } while (mustWait());
}

// Handlers run in reverse order, and what Qt makes at its first use it destroys by such a handler. So
// this one is registered again and again, each time after an eighth more calls than the last time:
// a hundred times or so in the life of a process.
void registerExitHandler() {
    static std::atomic<qint64> calls{0};
    static std::atomic<qint64> next{1};
    const qint64 call = calls.fetch_add(1, std::memory_order_relaxed) + 1;
    if (call >= next.load(std::memory_order_relaxed) && processExit == Exit::NotBegun) {
        next.store(call + call / 8 + 1, std::memory_order_relaxed);
        std::atexit(waitForCallsInFlight);
    }
}

// The thread may end later than what its fonts are destroyed with.
void dropFonts() {
    try {
        QFont::cleanup();
    } catch (...) { // without memory they stay
    }
}

} // namespace

// Released but not acquired: that would order the calls of two threads, and hide from a host's tools
// that the host does not.
velnor::FlightCount::FlightCount() {
    inFlight.fetch_add(1, std::memory_order_release);
    ++inFlightHere;
}

velnor::FlightCount::~FlightCount() {
    registerExitHandler();
    if (processExit == Exit::Waiting) {
        dropFonts();
    }
    --inFlightHere;
    inFlight.fetch_sub(1, std::memory_order_release);
}

bool velnor::FlightCount::isOnThisThread() {
    return inFlightHere > 0;
}

velnor::CallInFlight::CallInFlight()
    : refused(processExit != Exit::NotBegun), held(!refused && pthread_rwlock_rdlock(&gate) == 0) {}

velnor::CallInFlight::~CallInFlight() {
    if (held) {
        pthread_rwlock_unlock(&gate);
    }
}

velnor::ApplicationChange::ApplicationChange() {
    pthread_rwlock_wrlock(&gate);
}

velnor::ApplicationChange::~ApplicationChange() {
    pthread_rwlock_unlock(&gate);
}
