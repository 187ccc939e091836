#include "api/event_dispatcher.h"

#include "dispatched_thread.h"

#include <gtest/gtest.h>

#include <QSocketNotifier>

#include <array>
#include <memory>
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
