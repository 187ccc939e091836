#include "support/signals.h"

#include "support/harness.h"

#include <pthread.h>
#include <string.h>

SignalState signalState(void) {
    SignalState state;
    memset(&state, 0, sizeof state);
    CHECK(pthread_sigmask(SIG_BLOCK, NULL, &state.blocked) == 0);
    CHECK(sigpending(&state.pending) == 0);
    for (int number = 1; number < SignalCount; ++number) {
        /* Fails for the two that the C library keeps to itself; they stay zeroed. */
        sigaction(number, NULL, &state.actions[number]);
    }
    return state;
}

static void checkSameSet(const char* what, const sigset_t* before, const sigset_t* now) {
    for (int number = 1; number < SignalCount; ++number) {
        if (sigismember(before, number) != sigismember(now, number)) {
            failCase(__FILE__, __LINE__, "signal %d is %s %s", number,
                     sigismember(now, number) ? "now" : "no longer", what);
        }
    }
}

void checkSignalsAre(const SignalState* before) {
    const SignalState now = signalState();
    checkSameSet("blocked", &before->blocked, &now.blocked);
    checkSameSet("pending", &before->pending, &now.pending);
    for (int number = 1; number < SignalCount; ++number) {
        if (before->actions[number].sa_handler != now.actions[number].sa_handler ||
            before->actions[number].sa_flags != now.actions[number].sa_flags) {
            failCase(__FILE__, __LINE__, "signal %d has another action", number);
        }
    }
}
