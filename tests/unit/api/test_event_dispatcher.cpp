#include "api/event_dispatcher.h"

#include "dispatched_thread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QSemaphore>
#include <QThread>

#include <functional>
#include <thread>
#include <vector>

namespace {

// Queues work for the thread that `receiver` lives on.
template <typename Work>
void post(QObject& receiver, Work work) {
    QMetaObject::invokeMethod(&receiver, work, Qt::QueuedConnection);
}

TEST(EventDispatcher, PostedEventsAreDeliveredInOrder) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QObject receiver;
        std::vector<int> order;
        for (int i = 0; i < 5; ++i) {
            post(receiver, [&order, i] { order.push_back(i); });
        }
        processUntil(dispatcher, [&order] { return order.size() == 5; });
        EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
    });
}

TEST(EventDispatcher, EventsOfAnotherThreadEndTheWaiting) {
    onDispatchedThread([](velnor::EventDispatcher&) {
        QObject receiver;
        QEventLoop loop;
        QSemaphore running;
        int delivered = 0;
        post(receiver, [&running] { running.release(); });
        std::thread poster([&] {
            running.acquire();
            for (int i = 0; i < 100; ++i) {
                post(receiver, [&delivered] { ++delivered; });
            }
            post(receiver, [&loop] { loop.quit(); });
        });
        loop.exec();
        poster.join();
        EXPECT_EQ(delivered, 100);
    });
}

TEST(EventDispatcher, EventsThatAHandlerPostsAreDelivered) {
    onDispatchedThread([](velnor::EventDispatcher&) {
        QObject receiver;
        QEventLoop loop;
        int left = 50;
        std::function<void()> again = [&] {
            if (--left > 0) {
                post(receiver, again);
            } else {
                loop.quit();
            }
        };
        post(receiver, again);
        loop.exec();
        EXPECT_EQ(left, 0);
    });
}

TEST(EventDispatcher, ALoopInsideAHandlerDeliversEvents) {
    onDispatchedThread([](velnor::EventDispatcher&) {
        QObject receiver;
        QEventLoop outer;
        QEventLoop inner;
        bool delivered = false;
        post(receiver, [&] {
            post(receiver, [&] {
                delivered = true;
                inner.quit();
            });
            inner.exec();
            outer.quit();
        });
        outer.exec();
        EXPECT_TRUE(delivered);
    });
}

TEST(EventDispatcher, ObjectsAreDeletedLater) {
    onDispatchedThread([](velnor::EventDispatcher&) {
        QEventLoop loop;
        const QPointer<QObject> object(new QObject);
        QObject::connect(object, &QObject::destroyed, &loop, &QEventLoop::quit);
        object->deleteLater();
        EXPECT_FALSE(object.isNull());
        loop.exec();
        EXPECT_TRUE(object.isNull());
    });
}

// Lets `act` run on another thread as soon as the dispatcher waits; returns what the round gave.
bool waitWhile(velnor::EventDispatcher& dispatcher, const std::function<void()>& act) {
    QSemaphore blocked;
    const QMetaObject::Connection connection = QObject::connect(
        &dispatcher, &QAbstractEventDispatcher::aboutToBlock, &dispatcher,
        [&blocked] { blocked.release(); }, Qt::DirectConnection);
    std::thread actor([&] {
        blocked.acquire();
        act();
    });
    const bool worked = dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
    actor.join();
    QObject::disconnect(connection);
    return worked;
}

TEST(EventDispatcher, WakeUpOfAnotherThreadEndsTheWaiting) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_TRUE(waitWhile(dispatcher, [&dispatcher] { dispatcher.wakeUp(); }));
    });
}

TEST(EventDispatcher, InterruptOfAnotherThreadEndsTheWaiting) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_TRUE(waitWhile(dispatcher, [&dispatcher] { dispatcher.interrupt(); }));
    });
}

TEST(EventDispatcher, WakeUpBeforeTheWaitingIsNotLost) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        for (int i = 0; i < 1000; ++i) {
            dispatcher.wakeUp();
        }
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::WaitForMoreEvents));
    });
}

TEST(EventDispatcher, ManyWakeUpsCountAsOne) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        dispatcher.processEvents(QEventLoop::AllEvents);
        dispatcher.wakeUp();
        dispatcher.wakeUp();
        EXPECT_TRUE(dispatcher.hasPendingEvents());
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::AllEvents));
        EXPECT_FALSE(dispatcher.hasPendingEvents());
        EXPECT_FALSE(dispatcher.processEvents(QEventLoop::AllEvents));
    });
}

TEST(EventDispatcher, QuitOfAnotherThreadEndsALoop) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QEventLoop loop;
        QSemaphore blocked;
        QObject::connect(
            &dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop,
            [&blocked] { blocked.release(); }, Qt::DirectConnection);
        std::thread quitter([&] {
            blocked.acquire();
            loop.exit(7);
        });
        EXPECT_EQ(loop.exec(), 7);
        quitter.join();
    });
}

TEST(EventDispatcher, WithoutWorkItReturnsAtOnceUnlessItMayWait) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        dispatcher.processEvents(QEventLoop::AllEvents);
        int blocks = 0;
        QObject::connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, &dispatcher,
                         [&blocks] { ++blocks; });
        EXPECT_FALSE(dispatcher.processEvents(QEventLoop::AllEvents));
        EXPECT_EQ(blocks, 0);
    });
}

TEST(EventDispatcher, ItIsTheDispatcherOfItsThread) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        EXPECT_EQ(QAbstractEventDispatcher::instance(), &dispatcher);
        EXPECT_EQ(dispatcher.thread(), QThread::currentThread());
    });
}

TEST(EventDispatcher, OnlyThatOfTheThreadDetachesFromIt) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        EXPECT_FALSE(velnor::EventDispatcher().detachFromThread());
        EXPECT_EQ(QAbstractEventDispatcher::instance(), &dispatcher);
        EXPECT_TRUE(dispatcher.detachFromThread());
        EXPECT_EQ(QAbstractEventDispatcher::instance(), nullptr);
        EXPECT_FALSE(dispatcher.detachFromThread());
        dispatcher.attachToThread();
        EXPECT_EQ(QAbstractEventDispatcher::instance(), &dispatcher);
    });
}

} // namespace
