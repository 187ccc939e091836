#include "files/descriptors.h"
#include "files_on_disk.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

TEST(Descriptors, AboveTheStandardStreamsStayAsTheyAre) {
    const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
    ASSERT_GT(file, STDERR_FILENO);
    EXPECT_EQ(velnor::awayFromStandardStreams(file), file);
    close(file);
}

TEST(Descriptors, OfAStandardStreamMoveAwayFromIt) {
    const int hostInput = dup(STDIN_FILENO);
    ASSERT_EQ(dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO), STDIN_FILENO);
    const int moved = velnor::awayFromStandardStreams(STDIN_FILENO);
    EXPECT_GT(moved, STDERR_FILENO);
    EXPECT_EQ(fcntl(moved, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    close(moved);
    if (hostInput >= 0) {
        dup2(hostInput, STDIN_FILENO);
        close(hostInput);
    }
}

TEST(Descriptors, OpenAboveTheStandardStreams) {
    const ScratchFolder folder;
    const QByteArray path = folder.utf8Path(QStringLiteral("a"));
    const int file =
        velnor::openAwayFromStandardStreams(path.constData(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GT(file, STDERR_FILENO);
    EXPECT_EQ(fcntl(file, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(write(file, "bytes", 5), 5);
    close(file);
    EXPECT_EQ(contentOf(folder.path(QStringLiteral("a"))), "bytes");
}

TEST(Descriptors, AreFreeUpToTheLimitOfTheProcess) {
    constexpr int Limit = 64;
    int freeOnes = 0;
    for (int descriptor = 0; descriptor < Limit; ++descriptor) {
        freeOnes += fcntl(descriptor, F_GETFD) == -1 ? 1 : 0;
    }
    rlimit hostLimit{};
    getrlimit(RLIMIT_NOFILE, &hostLimit);
    const rlimit limit{Limit, hostLimit.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_TRUE(velnor::descriptorsAreFree(freeOnes));
    EXPECT_FALSE(velnor::descriptorsAreFree(freeOnes + 1));
    EXPECT_TRUE(velnor::descriptorsAreFree(freeOnes));
    setrlimit(RLIMIT_NOFILE, &hostLimit);
}

TEST(Descriptors, ThatAreNoneStayNone) {
    errno = ENOENT;
    EXPECT_EQ(velnor::awayFromStandardStreams(-1), -1);
    EXPECT_EQ(errno, ENOENT);
}

} // namespace
