#include "api/host_thread.h"

#include "api/event_dispatcher.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadStorage>

#include <memory>
#include <stdexcept>

namespace {

using OwnDispatcher = std::unique_ptr<velnor::EventDispatcher>;

// Lives as long as the thread. The font cache's timer stays in it between calls, and another thread
// that has just posted an event may still be about to wake it up.
OwnDispatcher& dispatcherOfThread() {
    // Never destroyed: threads may end after static objects are gone.
    static auto* const dispatchers = new QThreadStorage<OwnDispatcher>;
    OwnDispatcher& own = dispatchers->localData();
    if (own == nullptr) {
        own = std::make_unique<velnor::EventDispatcher>();
    }
    return own;
}

} // namespace

void velnor::ensureThreadHasDispatcher() {
    if (QAbstractEventDispatcher::instance() == nullptr) {
        // Destroyed by Qt when the thread, or the application on it, ends.
        std::make_unique<EventDispatcher>().release()->attachToThread();
    }
}

velnor::HostThread::HostThread() {
    if (call.isRefused()) {
        throw std::runtime_error("the process ends");
    }
    // Without an application nothing is drawn that needs fonts.
    if (QCoreApplication::instance() != nullptr &&
        QAbstractEventDispatcher::instance() == nullptr) {
        given = dispatcherOfThread().get();
        given->attachToThread();
    }
}

velnor::HostThread::~HostThread() {
    if (given == nullptr) {
        return;
    }
    try {
        given->activateTimers();
    } catch (...) { // without memory the timers wait for the next call
    }
    if (!given->detachFromThread()) {
        // It stays the thread's dispatcher; Qt destroys it with the thread.
        static_cast<void>(dispatcherOfThread().release());
    }
}
