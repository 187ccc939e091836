#include "api/host_state.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <csignal>
#include <optional>
#include <thread>

#include <pthread.h>

namespace {

int cancellationState() {
    int state = 0;
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &state);
    pthread_setcancelstate(state, nullptr);
    return state;
}

// Each on a thread of its own, whose state may be left behind.
template <typename Work>
void onThread(Work work) {
    std::thread(work).join();
}

} // namespace

TEST(HostState, RoundsToNearestAndPutsTheHostsRoundingBack) {
    onThread([] {
        std::fesetround(FE_DOWNWARD);
        {
            const velnor::HostState state;
            EXPECT_EQ(std::fegetround(), FE_TONEAREST);
        }
        EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
    });
}

TEST(HostState, MasksFloatingPointSignalsAndPutsThemBack) {
    onThread([] {
        feenableexcept(FE_DIVBYZERO);
        {
            const velnor::HostState state;
            EXPECT_EQ(fegetexcept(), 0);
            const volatile double zero = 0.0;
            EXPECT_GT(1.0 / zero, 0.0);
        }
        EXPECT_EQ(fegetexcept(), FE_DIVBYZERO);
    });
}

TEST(HostState, PutsTheHostsFloatingPointFlagsBack) {
    onThread([] {
        std::feclearexcept(FE_ALL_EXCEPT);
        std::feraiseexcept(FE_UNDERFLOW);
        {
            const velnor::HostState state;
            std::feraiseexcept(FE_DIVBYZERO);
        }
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_UNDERFLOW);
    });
}

TEST(HostState, HoldsCancellationOffAndAllowsItAgain) {
    onThread([] {
        {
            const velnor::HostState state;
            EXPECT_EQ(cancellationState(), PTHREAD_CANCEL_DISABLE);
        }
        EXPECT_EQ(cancellationState(), PTHREAD_CANCEL_ENABLE);
    });
}

TEST(HostState, LeavesAThreadUncancellableThatWasSo) {
    onThread([] {
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
        std::optional<velnor::HostState>(std::in_place).reset();
        EXPECT_EQ(cancellationState(), PTHREAD_CANCEL_DISABLE);
    });
}

TEST(HostState, MayBeHeldTwice) {
    onThread([] {
        std::fesetround(FE_UPWARD);
        {
            const velnor::HostState outer;
            std::optional<velnor::HostState>(std::in_place).reset();
            EXPECT_EQ(std::fegetround(), FE_TONEAREST);
            EXPECT_EQ(cancellationState(), PTHREAD_CANCEL_DISABLE);
        }
        EXPECT_EQ(std::fegetround(), FE_UPWARD);
    });
}

TEST(HostState, TakesTheSignalForATooLargeFileBack) {
    onThread([] {
        {
            const velnor::HostState state;
            pthread_kill(pthread_self(), SIGXFSZ);
        }
        sigset_t mask{};
        sigset_t pending{};
        pthread_sigmask(SIG_BLOCK, nullptr, &mask);
        sigpending(&pending);
        EXPECT_EQ(sigismember(&mask, SIGXFSZ), 0);
        EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0);
    });
}
