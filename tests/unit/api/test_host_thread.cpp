#include "api/host_thread.h"

#include "api/event_dispatcher.h"
#include "render/velnorimage.h"
#include "support/qt_messages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QThread>
#include <QTimerEvent>

#include <limits>
#include <memory>
#include <thread>

using velnor::HostThread;

namespace {

constexpr int Never = std::numeric_limits<int>::max(); // milliseconds

QAbstractEventDispatcher* currentDispatcher() {
    return QAbstractEventDispatcher::instance();
}

template <typename Work>
void onPlainThread(Work work) {
    std::thread(work).join();
}

// Counts the events that it receives.
class Receiver : public QObject {
public:
    int timers = 0;
    int others = 0;

protected:
    void timerEvent(QTimerEvent*) override { ++timers; }
    void customEvent(QEvent*) override { ++others; }
};

int openFiles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoFilter).size();
}

TEST(AHostThread, GetsADispatcherThatStaysAfterTheCall) {
    onPlainThread([] {
        EXPECT_EQ(currentDispatcher(), nullptr);
        QPointer<QAbstractEventDispatcher> given;
        {
            const HostThread thread;
            given = currentDispatcher();
            EXPECT_NE(dynamic_cast<velnor::EventDispatcher*>(given.data()), nullptr);
        }
        EXPECT_FALSE(given.isNull());
        EXPECT_EQ(currentDispatcher(), given);
    });
}

TEST(AHostThread, KeepsTheDispatcherOfAnEarlierCall) {
    const QtMessages messages;
    onPlainThread([] {
        { const HostThread first; }
        QAbstractEventDispatcher* const given = currentDispatcher();
        const HostThread second;
        const HostThread nested;
        EXPECT_EQ(currentDispatcher(), given);
    });
    EXPECT_EQ(messages.heard(), "");
}

TEST(AHostThread, OfQtKeepsItsOwnDispatcher) {
    const std::unique_ptr<QThread> qtThread(QThread::create([] {
        QAbstractEventDispatcher* const own = currentDispatcher();
        EXPECT_NE(own, nullptr);
        { const HostThread thread; }
        EXPECT_EQ(currentDispatcher(), own);
    }));
    qtThread->start();
    qtThread->wait();
}

TEST(AHostThread, ThatRunsTheApplicationKeepsItsOwnDispatcher) {
    QAbstractEventDispatcher* const own = currentDispatcher();
    ASSERT_NE(own, nullptr);
    { const HostThread thread; }
    EXPECT_EQ(currentDispatcher(), own);
}

TEST(AHostThread, RunsTimersThatAreDueAtTheEndOfACall) {
    onPlainThread([] {
        Receiver receiver;
        {
            const HostThread thread;
            receiver.startTimer(0);
            EXPECT_EQ(receiver.timers, 0);
        }
        EXPECT_EQ(receiver.timers, 1);
        { const HostThread later; }
        EXPECT_EQ(receiver.timers, 2);
    });
}

TEST(AHostThread, DoesNotRunTimersThatAreNotDue) {
    onPlainThread([] {
        Receiver receiver;
        {
            const HostThread thread;
            receiver.startTimer(Never);
        }
        EXPECT_EQ(receiver.timers, 0);
    });
}

TEST(AHostThread, HandlesNoOtherEvents) {
    onPlainThread([] {
        Receiver receiver;
        {
            const HostThread thread;
            QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
            receiver.startTimer(0);
        }
        EXPECT_EQ(receiver.timers, 1);
        EXPECT_EQ(receiver.others, 0);
    });
}

TEST(AHostThread, OfQtRunsItsTimersItself) {
    Receiver receiver;
    {
        const HostThread thread;
        receiver.startTimer(0);
    }
    EXPECT_EQ(receiver.timers, 0);
}

TEST(AHostThread, TakesItsDispatcherAlongWhenItEnds) {
    QPointer<QAbstractEventDispatcher> given;
    onPlainThread([&given] {
        const HostThread thread;
        given = currentDispatcher();
        EXPECT_FALSE(given.isNull());
    });
    EXPECT_TRUE(given.isNull());
}

TEST(AHostThread, LeavesNoOpenFilesBehind) {
    onPlainThread([] { const HostThread first; });
    const int before = openFiles();
    for (int i = 0; i < 50; ++i) {
        onPlainThread([] { const HostThread thread; });
    }
    EXPECT_EQ(openFiles(), before);
}

// Qt's font cache starts a timer as soon as it holds enough fonts.
TEST(AHostThread, UsesManyFontsInSilence) {
    const QtMessages messages;
    onPlainThread([] {
        const HostThread thread;
        VelnorImage surface(300, 100);
        for (int size = 5; size < 200; ++size) {
            surface.SetFont(QStringLiteral("Liberation Sans"), size, 96, false, false, false);
            surface.DrawOverlayText(QStringLiteral("Ticket"), 5, 50, 0);
        }
    });
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
