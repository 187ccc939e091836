#include "dispatched_thread.h"

#include <QThread>

#include <memory>

void onDispatchedThread(const DispatcherWork& work) {
    auto* dispatcher = new velnor::EventDispatcher; // the thread deletes it
    const std::unique_ptr<QThread> thread(QThread::create([&] { work(*dispatcher); }));
    thread->setEventDispatcher(dispatcher);
    thread->start();
    thread->wait();
}

void processUntil(velnor::EventDispatcher& dispatcher, const std::function<bool()>& reached) {
    while (!reached()) {
        dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
    }
}
