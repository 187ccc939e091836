#include "api/event_dispatcher.h"

#include "dispatched_thread.h"
#include "support/qt_messages.h"

#include <gtest/gtest.h>

#include <QSocketNotifier>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace {

// A pipe whose ends are closed when it goes.
class Pipe {
public:
    Pipe() {
        if (pipe(ends.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
    }
    ~Pipe() {
        close(ends[0]);
        closeOutput();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int input() const { return ends[0]; }
    int output() const { return ends[1]; }
    void write() const { EXPECT_EQ(::write(ends[1], "x", 1), 1); }
    void read() const {
        char byte = 0;
        EXPECT_EQ(::read(ends[0], &byte, 1), 1);
    }
    void closeOutput() {
        if (ends[1] >= 0) {
            close(ends[1]);
        }
        ends[1] = -1;
    }

private:
    std::array<int, 2> ends{};
};

// A notifier that counts its activations.
class CountingNotifier {
public:
    CountingNotifier(int file, QSocketNotifier::Type type)
        : notifier(std::make_unique<QSocketNotifier>(file, type)) {
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [this] { ++activations; });
    }

    std::unique_ptr<QSocketNotifier> notifier;
    int activations = 0;
};

TEST(DispatcherSockets, AReadNotifierIsActivatedWhileThereIsSomethingToRead) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 0);
        pipe.write();
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::WaitForMoreEvents));
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::WaitForMoreEvents));
        EXPECT_EQ(reader.activations, 2);
        pipe.read();
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 2);
    });
}

TEST(DispatcherSockets, AWriteOfAnotherThreadEndsTheWaiting) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        std::thread writer([&pipe] { pipe.write(); });
        processUntil(dispatcher, [&reader] { return reader.activations == 1; });
        writer.join();
        EXPECT_EQ(reader.activations, 1);
    });
}

TEST(DispatcherSockets, AWriteNotifierIsActivatedWhileThereIsRoom) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier writer(pipe.output(), QSocketNotifier::Write);
        EXPECT_TRUE(dispatcher.processEvents(QEventLoop::WaitForMoreEvents));
        EXPECT_EQ(writer.activations, 1);
    });
}

TEST(DispatcherSockets, BothEndsOfAPipeAreWatchedAtOnce) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        const CountingNotifier writer(pipe.output(), QSocketNotifier::Write);
        pipe.write();
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 1);
        EXPECT_EQ(writer.activations, 1);
    });
}

TEST(DispatcherSockets, TheEndOfTheInputActivatesAReadNotifier) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        pipe.closeOutput();
        dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_EQ(reader.activations, 1);
    });
}

TEST(DispatcherSockets, ADisabledNotifierIsNotActivated) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        pipe.write();
        reader.notifier->setEnabled(false);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 0);
        reader.notifier->setEnabled(true);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 1);
    });
}

TEST(DispatcherSockets, NotifiersWaitWhileTheyAreExcluded) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        pipe.write();
        dispatcher.processEvents(QEventLoop::ExcludeSocketNotifiers);
        EXPECT_EQ(reader.activations, 0);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(reader.activations, 1);
    });
}

TEST(DispatcherSockets, ADeletedNotifierIsForgotten) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        pipe.write();
        reader.notifier.reset();
        EXPECT_FALSE(dispatcher.processEvents(QEventLoop::AllEvents));
        EXPECT_EQ(reader.activations, 0);
    });
}

TEST(DispatcherSockets, ANotifierMayDisableOneThatIsReadyWithIt) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const Pipe other;
        const CountingNotifier first(pipe.input(), QSocketNotifier::Read);
        const CountingNotifier second(other.input(), QSocketNotifier::Read);
        QObject::connect(first.notifier.get(), &QSocketNotifier::activated, second.notifier.get(),
                         [&second] { second.notifier->setEnabled(false); });
        QObject::connect(second.notifier.get(), &QSocketNotifier::activated, first.notifier.get(),
                         [&first] { first.notifier->setEnabled(false); });
        pipe.write();
        other.write();
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(first.activations + second.activations, 1);
    });
}

// What the host does with one notifier while another is ready.
struct Change {
    const char* name;
    std::function<void(CountingNotifier& changed)> make;
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

class ChangesOfNotifiers : public testing::TestWithParam<Change> {};

TEST_P(ChangesOfNotifiers, BeforeTheWaitingActivateTheOneThatIsReady) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe idle;
        const Pipe pipe;
        CountingNotifier changed(idle.input(), QSocketNotifier::Read);
        const CountingNotifier ready(pipe.input(), QSocketNotifier::Read);
        const CountingNotifier last(idle.input(), QSocketNotifier::Exception);
        QObject::connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, &dispatcher,
                         [&changed] { GetParam().make(changed); });
        pipe.write();
        dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_EQ(changed.activations, 0);
        EXPECT_EQ(ready.activations, 1);
        EXPECT_EQ(last.activations, 0);
    });
}

TEST_P(ChangesOfNotifiers, BeforeTheWaitingDisableTheOneWhoseFileIsClosed) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe idle;
        Pipe pipe;
        CountingNotifier changed(idle.input(), QSocketNotifier::Read);
        const CountingNotifier closed(pipe.output(), QSocketNotifier::Write);
        const CountingNotifier last(idle.input(), QSocketNotifier::Exception);
        QObject::connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, &dispatcher,
                         [&changed] { GetParam().make(changed); });
        pipe.closeOutput();
        dispatcher.wakeUp();
        dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_FALSE(closed.notifier->isEnabled());
        EXPECT_TRUE(last.notifier->isEnabled());
    });
}

void disable(CountingNotifier& changed) {
    changed.notifier->setEnabled(false);
}

void enableAgain(CountingNotifier& changed) {
    changed.notifier->setEnabled(false);
    changed.notifier->setEnabled(true);
}

void remove(CountingNotifier& changed) {
    changed.notifier.reset();
}

void replace(CountingNotifier& changed) {
    const auto file = static_cast<int>(changed.notifier->socket());
    changed.notifier = std::make_unique<QSocketNotifier>(file, QSocketNotifier::Exception);
}

INSTANTIATE_TEST_SUITE_P(Dispatcher, ChangesOfNotifiers,
                         testing::Values(Change{"disable", disable},
                                         Change{"enable again", enableAgain},
                                         Change{"remove", remove}, Change{"replace", replace}));

TEST(DispatcherSockets, ANotifierInThePlaceOfAReadyOneIsNotActivated) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const Pipe other;
        const Pipe idle;
        int activations = 0;
        const CountingNotifier first(pipe.input(), QSocketNotifier::Read);
        std::optional<QSocketNotifier> second(std::in_place, other.input(), QSocketNotifier::Read);
        QObject::connect(first.notifier.get(), &QSocketNotifier::activated, [&] {
            second.emplace(idle.input(), QSocketNotifier::Read);
            QObject::connect(&*second, &QSocketNotifier::activated,
                             [&activations] { ++activations; });
        });
        pipe.write();
        other.write();
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(first.activations, 1);
        EXPECT_EQ(activations, 0);
    });
}

TEST(DispatcherSockets, ANotifierOfANegativeDescriptorChangesNothingForTheOthers) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        const Pipe pipe;
        const QtMessages refusal;
        const CountingNotifier invalid(-1, QSocketNotifier::Read);
        const CountingNotifier reader(pipe.input(), QSocketNotifier::Read);
        dispatcher.registerSocketNotifier(invalid.notifier.get());
        pipe.write();
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_EQ(invalid.activations, 0);
        EXPECT_EQ(reader.activations, 1);
        EXPECT_TRUE(reader.notifier->isEnabled());
        dispatcher.unregisterSocketNotifier(invalid.notifier.get());
    });
}

TEST(DispatcherSockets, AClosedFileDoesNotKeepTheLoopBusy) {
    onDispatchedThread([](velnor::EventDispatcher& dispatcher) {
        Pipe pipe;
        const CountingNotifier writer(pipe.output(), QSocketNotifier::Write);
        pipe.closeOutput();
        dispatcher.processEvents(QEventLoop::AllEvents);
        dispatcher.processEvents(QEventLoop::AllEvents);
        EXPECT_FALSE(dispatcher.processEvents(QEventLoop::AllEvents));
    });
}

} // namespace
