#include "api/event_dispatcher.h"

#include "dispatched_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <vector>

using testing::AllOf;
using testing::Ge;
using testing::Le;

namespace {

constexpr int Never = std::numeric_limits<int>::max(); // milliseconds
constexpr int FirstId = 100000;                        // far from the identifiers that Qt hands out

// Collects the timer events that it receives.
class Receiver : public QObject {
public:
    std::vector<int> received;
    std::function<void(int)> onTimer = [](int) {};

protected:
    void timerEvent(QTimerEvent* event) override {
        received.push_back(event->timerId());
        onTimer(event->timerId());
    }
};

// A dispatcher whose time passes when a test says so.
class TimedDispatcher : public velnor::EventDispatcher {
public:
    void pass(int milliseconds) { now += std::chrono::milliseconds(milliseconds); }

protected:
    TimePoint currentTime() const override { return now; }

private:
    TimePoint now = std::chrono::steady_clock::now();
};

class TimersOfEveryType : public testing::TestWithParam<Qt::TimerType> {};

TEST_P(TimersOfEveryType, FireAgainAndAgain) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        const int timer = receiver.startTimer(1, GetParam());
        processUntil(dispatcher, [&receiver] { return receiver.received.size() == 3; });
        EXPECT_EQ(receiver.received, std::vector<int>(3, timer));
    });
}

TEST_P(TimersOfEveryType, FireInALoop) {
    onDispatchedThread([](velnor::EventDispatcher&) {
        QEventLoop loop;
        int shots = 0;
        QTimer::singleShot(1, GetParam(), &loop, [&] {
            ++shots;
            loop.quit();
        });
        loop.exec();
        EXPECT_EQ(shots, 1);
    });
}

INSTANTIATE_TEST_SUITE_P(Dispatcher, TimersOfEveryType,
                         testing::Values(Qt::PreciseTimer, Qt::CoarseTimer, Qt::VeryCoarseTimer));

TEST(DispatcherTimers, ATimerOfZeroFiresOncePerRound) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        receiver.startTimer(0);
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::AllEvents));
        EXPECT_EQ(receiver.received.size(), 1U);
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::WaitForMoreEvents));
        EXPECT_EQ(receiver.received.size(), 2U);
    });
}

TEST(DispatcherTimers, ATimerOfZeroDoesNotStarveTheOthers) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver busy;
        Receiver patient;
        busy.startTimer(0);
        patient.startTimer(2);
        processUntil(dispatcher, [&patient] { return patient.received.size() == 2; });
        EXPECT_GE(busy.received.size(), 2U);
    });
}

TEST(DispatcherTimers, ATimerThatIsNotDueDoesNotFire) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        receiver.startTimer(Never);
        receiver.startTimer(1);
        processUntil(dispatcher, [&receiver] { return !receiver.received.empty(); });
        EXPECT_EQ(receiver.received.size(), 1U);
        EXPECT_FALSE(dispatcher.hasPendingEvents());
    });
}

TEST(DispatcherTimers, AKilledTimerDoesNotFire) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        const int killed = receiver.startTimer(0);
        const int other = receiver.startTimer(0);
        receiver.killTimer(killed);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(receiver.received, std::vector<int>{other});
    });
}

TEST(DispatcherTimers, ATimerMayKillItself) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        receiver.onTimer = [&receiver](int timer) { receiver.killTimer(timer); };
        receiver.startTimer(0);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_FALSE(dispatcher.processEvents(QEventLoop::AllEvents));
        EXPECT_EQ(receiver.received.size(), 1U);
    });
}

TEST(DispatcherTimers, ATimerMayKillOneThatIsDueWithIt) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        const int first = receiver.startTimer(0);
        const int second = receiver.startTimer(0);
        receiver.onTimer = [&](int timer) { receiver.killTimer(timer == first ? second : first); };
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(receiver.received.size(), 1U);
    });
}

TEST(DispatcherTimers, ATimerMayDeleteTheReceiverOfAnother) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        auto* victim = new Receiver;
        receiver.startTimer(0);
        victim->startTimer(0);
        receiver.onTimer = [&victim](int) {
            delete victim;
            victim = nullptr;
        };
        dispatcher.processEvents(QEventLoop::AllEvents);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(victim, nullptr);
        EXPECT_EQ(receiver.received.size(), 2U);
    });
}

TEST(DispatcherTimers, ADeletedReceiverLeavesNoTimerBehind) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        auto receiver = std::make_unique<Receiver>();
        receiver->startTimer(0);
        receiver.reset();
        EXPECT_FALSE(dispatcher.hasPendingEvents());
    });
}

TEST(DispatcherTimers, ATimerMayStartAnother) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        Receiver started;
        receiver.onTimer = [&](int timer) {
            receiver.killTimer(timer);
            started.startTimer(1);
        };
        receiver.startTimer(1);
        processUntil(dispatcher, [&started] { return !started.received.empty(); });
        EXPECT_EQ(receiver.received.size(), 1U);
    });
}

TEST(DispatcherTimers, ATimerDoesNotFireInsideItsOwnHandler) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        int depth = 0;
        int deepest = 0;
        receiver.onTimer = [&](int) {
            deepest = std::max(deepest, ++depth);
            if (depth < 3) {
                dispatcher.processEvents(QEventLoop::AllEvents);
            }
            --depth;
        };
        receiver.startTimer(0);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(deepest, 1);
    });
}

TEST(DispatcherTimers, TimersWaitWhileTheyAreExcluded) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        receiver.startTimer(0);
        dispatcher.processEvents(QEventLoop::X11ExcludeTimers);
        EXPECT_TRUE(receiver.received.empty());
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(receiver.received.size(), 1U);
    });
}

TEST(DispatcherTimers, ActivatingTimersDeliversNothingElse) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Receiver receiver;
        bool posted = false;
        QMetaObject::invokeMethod(
            &receiver, [&posted] { posted = true; }, Qt::QueuedConnection);
        receiver.startTimer(Never);
        EXPECT_FALSE(dispatcher.activateTimers());
        receiver.startTimer(0);
        EXPECT_TRUE(dispatcher.activateTimers());
        EXPECT_EQ(receiver.received.size(), 1U);
        EXPECT_FALSE(posted);
    });
}

TEST(DispatcherTimers, OverdueTimersFireInTheOrderInWhichTheyBecameDue) {
    TimedDispatcher dispatcher;
    Receiver receiver;
    constexpr std::array<int, 5> Intervals = {30, 10, 40, 10, 20};
    for (size_t i = 0; i < Intervals.size(); ++i) {
        dispatcher.registerTimer(FirstId + static_cast<int>(i), Intervals.at(i), Qt::PreciseTimer,
                                 &receiver);
    }
    dispatcher.pass(35);
    EXPECT_TRUE(dispatcher.activateTimers());
    EXPECT_EQ(receiver.received,
              (std::vector<int>{FirstId + 1, FirstId + 3, FirstId + 4, FirstId}));
}

// A timer of 10 ms that fires too late, and how long after that it is due again.
struct Lateness {
    int late;
    int remaining;
};

void PrintTo(const Lateness& lateness, std::ostream* out) {
    *out << lateness.late << " ms late";
}

class LateTimers : public testing::TestWithParam<Lateness> {};

TEST_P(LateTimers, FireOnceAndKeepTheirPace) {
    TimedDispatcher dispatcher;
    Receiver receiver;
    dispatcher.registerTimer(FirstId, 10, Qt::PreciseTimer, &receiver);
    dispatcher.pass(10 + GetParam().late);
    EXPECT_TRUE(dispatcher.activateTimers());
    EXPECT_EQ(dispatcher.remainingTime(FirstId), GetParam().remaining);
    EXPECT_EQ(receiver.received.size(), 1U);
    EXPECT_EQ(dispatcher.activateTimers(), GetParam().remaining == 0);
}

INSTANTIATE_TEST_SUITE_P(Dispatcher, LateTimers,
                         testing::Values(Lateness{0, 10}, Lateness{3, 7}, Lateness{9, 1},
                                         Lateness{10, 0}, Lateness{11, 10}, Lateness{1000, 10}));

TEST(DispatcherTimers, ATimerThatWasFiredInsideAHandlerIsNotFiredAgainBeforeItsTime) {
    TimedDispatcher dispatcher;
    Receiver receiver;
    dispatcher.registerTimer(FirstId, 10, Qt::PreciseTimer, &receiver);
    dispatcher.registerTimer(FirstId + 1, 20, Qt::PreciseTimer, &receiver);
    receiver.onTimer = [&](int timer) {
        if (timer == FirstId) {
            dispatcher.activateTimers();
        }
    };
    dispatcher.pass(25);
    dispatcher.activateTimers();
    EXPECT_EQ(receiver.received, (std::vector<int>{FirstId, FirstId + 1}));
}

TEST(DispatcherTimers, RegisteredTimersAreListedByTheirObject) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QObject first;
        QObject second;
        dispatcher.registerTimer(FirstId, 10, Qt::PreciseTimer, &first);
        dispatcher.registerTimer(FirstId + 1, 20, Qt::CoarseTimer, &second);
        dispatcher.registerTimer(FirstId + 2, Never, Qt::VeryCoarseTimer, &first);
        const auto listed = dispatcher.registeredTimers(&first);
        ASSERT_EQ(listed.size(), 2);
        EXPECT_EQ(listed[0].timerId, FirstId);
        EXPECT_EQ(listed[0].interval, 10);
        EXPECT_EQ(listed[0].timerType, Qt::PreciseTimer);
        EXPECT_EQ(listed[1].timerId, FirstId + 2);
        EXPECT_EQ(listed[1].interval, Never);
        EXPECT_EQ(listed[1].timerType, Qt::VeryCoarseTimer);
        EXPECT_TRUE(dispatcher.unregisterTimers(&first));
        EXPECT_TRUE(dispatcher.unregisterTimers(&second));
    });
}

TEST(DispatcherTimers, UnregisteringTellsWhetherThereWasATimer) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QObject object;
        dispatcher.registerTimer(FirstId, 10, Qt::PreciseTimer, &object);
        dispatcher.registerTimer(FirstId + 1, 10, Qt::PreciseTimer, &object);
        EXPECT_TRUE(dispatcher.unregisterTimer(FirstId));
        EXPECT_FALSE(dispatcher.unregisterTimer(FirstId));
        EXPECT_EQ(dispatcher.registeredTimers(&object).size(), 1);
        EXPECT_TRUE(dispatcher.unregisterTimers(&object));
        EXPECT_FALSE(dispatcher.unregisterTimers(&object));
        EXPECT_TRUE(dispatcher.registeredTimers(&object).isEmpty());
    });
}

TEST(DispatcherTimers, TheRemainingTimeIsWithinTheInterval) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QObject object;
        dispatcher.registerTimer(FirstId, 60000, Qt::PreciseTimer, &object);
        EXPECT_THAT(dispatcher.remainingTime(FirstId), AllOf(Ge(0), Le(60000)));
        EXPECT_TRUE(dispatcher.unregisterTimer(FirstId));
    });
}

TEST(DispatcherTimers, ATimerThatIsDueHasNoRemainingTime) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        QObject object;
        dispatcher.registerTimer(FirstId, 0, Qt::PreciseTimer, &object);
        EXPECT_EQ(dispatcher.remainingTime(FirstId), 0);
        EXPECT_TRUE(dispatcher.hasPendingEvents());
        EXPECT_TRUE(dispatcher.unregisterTimer(FirstId));
    });
}

TEST(DispatcherTimers, AnUnknownTimerHasARemainingTimeOfMinusOne) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        EXPECT_EQ(dispatcher.remainingTime(FirstId), -1);
    });
}

} // namespace
