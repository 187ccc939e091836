/* Signals that reach the host while the library works. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <signal.h>
#include <stdatomic.h>
#include <string.h>
#include <sys/time.h>

enum { Signals = 100, Pictures = 10, AlternateStackSize = 64 * 1024 };

static atomic_int received;
static atomic_int receivedElsewhere;
static pthread_t expectedThread;

static void countSignal(int number) {
    (void)number;
    atomic_fetch_add(&received, 1);
    if (!pthread_equal(pthread_self(), expectedThread)) {
        atomic_fetch_add(&receivedElsewhere, 1);
    }
}

/* Without SA_RESTART: every system call that waits is broken off. */
static void signalEveryMillisecond(int flags) {
    struct sigaction action;
    memset(&action, 0, sizeof action);
    action.sa_handler = countSignal;
    action.sa_flags = flags;
    CHECK(sigaction(SIGALRM, &action, NULL) == 0);
    const struct itimerval timer = {{0, 1000}, {0, 1000}};
    CHECK(setitimer(ITIMER_REAL, &timer, NULL) == 0);
}

static void blockAlarms(int how) {
    sigset_t alarms;
    CHECK(sigemptyset(&alarms) == 0 && sigaddset(&alarms, SIGALRM) == 0);
    CHECK(pthread_sigmask(how, &alarms, NULL) == 0);
}

static void drawUnderSignals(const char* expected) {
    for (int drawn = 0; drawn < Pictures || atomic_load(&received) < Signals; ++drawn) {
        checkDraws(TICKET, expected);
    }
}

CASE(pictures_are_whole_while_signals_break_into_every_call) {
    startLibrary();
    const char* expected = drawDocument(TICKET, "expected.png");
    signalEveryMillisecond(0);
    drawUnderSignals(expected);
}

CASE(a_host_starts_and_ends_the_application_while_signals_break_into_it) {
    signalEveryMillisecond(0);
    const pthread_t starter = startApplication();
    drawUnderSignals(drawDocument(TICKET, "expected.png"));
    CHECK(endApplication(starter) == NULL);
}

CASE(signals_may_be_handled_on_a_stack_of_their_own) {
    const stack_t stack = {.ss_sp = caseMemory(AlternateStackSize), .ss_size = AlternateStackSize};
    CHECK(sigaltstack(&stack, NULL) == 0);
    startLibrary();
    const char* expected = drawDocument(TICKET, "expected.png");
    signalEveryMillisecond(SA_ONSTACK);
    drawUnderSignals(expected);
}

CASE(the_thread_of_the_application_takes_signals_that_others_block) {
    const pthread_t starter = startApplication();
    expectedThread = starter;
    blockAlarms(SIG_BLOCK);
    signalEveryMillisecond(0);
    drawUnderSignals(drawDocument(TICKET, "expected.png"));
    CHECK_INT(0, atomic_load(&receivedElsewhere));
    CHECK(endApplication(starter) == NULL);
}

CASE(a_signal_that_every_thread_blocks_waits_until_the_host_takes_it) {
    blockAlarms(SIG_BLOCK);
    signalEveryMillisecond(0);
    const pthread_t starter = startApplication();
    const char* expected = drawDocument(TICKET, "expected.png");
    for (int drawn = 0; drawn < Pictures; ++drawn) {
        checkDraws(TICKET, expected);
    }
    CHECK_INT(0, atomic_load(&received));
    CHECK(endApplication(starter) == NULL);
    blockAlarms(SIG_UNBLOCK);
    CHECK(atomic_load(&received) > 0);
}
