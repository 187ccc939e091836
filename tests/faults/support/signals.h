/* What a host can see of its signals. */
#ifndef VELNOR_TESTS_SIGNALS_H
#define VELNOR_TESTS_SIGNALS_H

#include <signal.h>

enum { SignalCount = 65 };

typedef struct SignalState {
    sigset_t blocked;
    sigset_t pending;
    struct sigaction actions[SignalCount];
} SignalState;

SignalState signalState(void);
/* Checks that mask and pending signals of this thread, and the actions of the process, are those
 * of `before`. */
void checkSignalsAre(const SignalState* before);

#endif
