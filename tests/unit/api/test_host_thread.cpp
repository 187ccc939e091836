#include "api/host_thread.h"

#include "api/event_dispatcher.h"
#include "render/velnorimage.h"
#include "support/qt_messages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QPointer>
#include <QThread>
#include <QTimer>
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

bool hasOurDispatcher() {
    return dynamic_cast<velnor::EventDispatcher*>(currentDispatcher()) != nullptr;
}

TEST(AHostThread, HasADispatcherDuringACall) {
    const QtMessages messages;
    onPlainThread([] {
        EXPECT_EQ(currentDispatcher(), nullptr);
        {
            const HostThread thread;
            EXPECT_TRUE(hasOurDispatcher());
            { const HostThread nested; }
            EXPECT_TRUE(hasOurDispatcher());
        }
        EXPECT_EQ(currentDispatcher(), nullptr);
    });
    EXPECT_EQ(messages.heard(), "");
}

// Another thread that posts an event reads the dispatcher and then wakes it up.
TEST(AHostThread, HasTheSameDispatcherInEachCall) {
    onPlainThread([] {
        QPointer<QAbstractEventDispatcher> given;
        {
            const HostThread first;
            given = currentDispatcher();
        }
        ASSERT_FALSE(given.isNull());
        given->wakeUp();
        const HostThread second;
        EXPECT_EQ(currentDispatcher(), given);
    });
}

TEST(AHostThread, RunsAnEventLoopOfItsOwnBetweenCalls) {
    const QtMessages messages;
    onPlainThread([] {
        { const HostThread first; }
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&loop] {
            { const HostThread second; }
            loop.quit();
        });
        loop.exec();
        EXPECT_NE(currentDispatcher(), nullptr);
        EXPECT_FALSE(hasOurDispatcher());
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

TEST(AHostThread, ForgetsTheTimersOfObjectsThatWereDestroyedBetweenCalls) {
    onPlainThread([] {
        int timer = 0;
        {
            Receiver receiver; // destroyed after the call
            const HostThread thread;
            timer = receiver.startTimer(Never);
        }
        const HostThread later;
        EXPECT_EQ(currentDispatcher()->remainingTime(timer), -1);
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
