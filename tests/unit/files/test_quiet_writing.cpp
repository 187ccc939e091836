#include "files/quiet_writing.h"
#include "files_on_disk.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

int received = 0;

// Counts the signal while this lives, in the place of the host's handler.
class CountedSignal {
public:
    explicit CountedSignal(int signalNumber)
        : number(signalNumber), hostHandler(std::signal(signalNumber, [](int) { ++received; })) {
        received = 0;
    }
    ~CountedSignal() { std::signal(number, hostHandler); }
    CountedSignal(const CountedSignal&) = delete;
    CountedSignal& operator=(const CountedSignal&) = delete;

    bool isPending() const {
        sigset_t pending{};
        sigpending(&pending);
        return sigismember(&pending, number) == 1;
    }

private:
    int number;
    void (*hostHandler)(int);
};

bool isBlocked(int signalNumber) {
    sigset_t mask{};
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    return sigismember(&mask, signalNumber) == 1;
}

bool writeToUnreadPipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    close(ends[0]);
    const bool written = velnor::writeQuietly(ends[1], "bytes");
    close(ends[1]);
    return written;
}

TEST(QuietWriting, WritesAllBytes) {
    const ScratchFolder folder;
    QFile file(folder.path(QStringLiteral("a")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray bytes(300000, 'x');
    EXPECT_TRUE(velnor::writeQuietly(file.handle(), bytes));
    EXPECT_EQ(contentOf(file.fileName()), bytes);
}

TEST(QuietWriting, ToAPipeThatNobodyReadsFailsWithoutASignal) {
    const CountedSignal pipeSignal(SIGPIPE);
    EXPECT_FALSE(writeToUnreadPipe());
    EXPECT_EQ(received, 0);
    EXPECT_FALSE(pipeSignal.isPending());
    EXPECT_FALSE(isBlocked(SIGPIPE));
}

TEST(QuietWriting, BeyondTheFileSizeLimitFailsWithoutASignal) {
    const CountedSignal sizeSignal(SIGXFSZ);
    const ScratchFolder folder;
    QFile file(folder.path(QStringLiteral("a")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writeQuietly(file.handle(), QByteArray(100000, 'x')));
    EXPECT_EQ(received, 0);
    EXPECT_FALSE(sizeSignal.isPending());
    EXPECT_FALSE(isBlocked(SIGXFSZ));
}

TEST(QuietWriting, LeavesASignalPendingThatTheHostWasHoldingBack) {
    const CountedSignal pipeSignal(SIGPIPE);
    sigset_t held{};
    sigemptyset(&held);
    sigaddset(&held, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &held, nullptr);
    raise(SIGPIPE);
    EXPECT_FALSE(writeToUnreadPipe());
    EXPECT_TRUE(pipeSignal.isPending());
    EXPECT_TRUE(isBlocked(SIGPIPE));
    pthread_sigmask(SIG_UNBLOCK, &held, nullptr);
    EXPECT_EQ(received, 1);
}

TEST(QuietWriting, ToAFileThatIsNotOpenFails) {
    EXPECT_FALSE(velnor::writeQuietly(-1, "bytes"));
}

} // namespace
