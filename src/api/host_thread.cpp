#include "api/host_thread.h"

#include "api/event_dispatcher.h"

#include <QCoreApplication>
#include <QThread>

#include <memory>
#include <stdexcept>

void velnor::ensureThreadHasDispatcher() {
    if (QAbstractEventDispatcher::instance() == nullptr) {
        // Destroyed by Qt when the thread, or the application on it, ends.
        QThread::currentThread()->setEventDispatcher(std::make_unique<EventDispatcher>().release());
    }
}

velnor::HostThread::HostThread() {
    if (call.isRefused()) {
        throw std::runtime_error("the process ends");
    }
    // A host that makes its application later must find its thread as it was.
    if (QCoreApplication::instance() != nullptr) {
        ensureThreadHasDispatcher();
    }
}

velnor::HostThread::~HostThread() {
    try {
        if (auto* own = dynamic_cast<EventDispatcher*>(QAbstractEventDispatcher::instance())) {
            own->activateTimers();
        }
    } catch (...) { // without memory the timers wait for the next call
    }
}
