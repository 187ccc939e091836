#include "api/host_thread.h"

#include "api/event_dispatcher.h"

#include <QThread>

#include <memory>

velnor::HostThread::HostThread() {
    if (QAbstractEventDispatcher::instance() == nullptr) {
        // Destroyed by Qt when the thread ends.
        QThread::currentThread()->setEventDispatcher(std::make_unique<EventDispatcher>().release());
    }
}

velnor::HostThread::~HostThread() {
    if (auto* own = dynamic_cast<EventDispatcher*>(QAbstractEventDispatcher::instance())) {
        own->activateTimers();
    }
}
