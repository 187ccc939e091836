/* What the host has set for its process or its threads is found again after start-up and calls. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <sched.h>
#include <signal.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

enum { Umask = 027, NameSize = 16, AlternateStackSize = 64 * 1024, Numbers = 8, Niceness = 3 };

static void useEverything(void) {
    int values[3] = {0, 0, 0};
    void* handler = handlerOf(TICKET);
    xmlToImgCheckCorrect(handler, NULL, 0);
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &values[0], &values[1], &values[2]));
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Sans", &values[0], &values[1]));
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("everything.png")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("everything.bmp")));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void checkStays(const char* (*state)(void)) {
    const char* before = state();
    const pthread_t starter = startApplication();
    useEverything();
    CHECK_TEXT(before, state());
    CHECK(endApplication(starter) == NULL);
    CHECK_TEXT(before, state());
}

static void ignoreSignal(int number) {
    (void)number;
}

static const char* signalActions(void) {
    const char* text = "";
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action;
        memset(&action, 0, sizeof action);
        sigaction(number, NULL, &action);
        text = textOf("%s%d %p %x\n", text, number, *(void**)&action.sa_handler, action.sa_flags);
    }
    return text;
}

CASE(the_default_actions_of_all_signals_stay) {
    checkStays(signalActions);
}

CASE(a_handler_of_the_host_for_every_signal_stays) {
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action;
        memset(&action, 0, sizeof action);
        action.sa_handler = ignoreSignal;
        action.sa_flags = number % 2 == 0 ? SA_RESTART : SA_ONSTACK;
        /* Some cannot be caught. */
        sigaction(number, &action, NULL);
    }
    checkStays(signalActions);
}

CASE(ignored_signals_stay_ignored) {
    const int ignored[] = {SIGPIPE, SIGHUP, SIGCHLD, SIGXFSZ};
    for (size_t i = 0; i < sizeof ignored / sizeof *ignored; ++i) {
        CHECK(signal(ignored[i], SIG_IGN) != SIG_ERR);
    }
    checkStays(signalActions);
}

static const char* blockedSignals(void) {
    sigset_t blocked;
    CHECK(pthread_sigmask(SIG_SETMASK, NULL, &blocked) == 0);
    const char* text = "";
    for (int number = 1; number < NSIG; ++number) {
        text = textOf("%s%d", text, sigismember(&blocked, number));
    }
    return text;
}

CASE(the_signals_that_a_thread_blocks_stay) {
    checkStays(blockedSignals);
    sigset_t some;
    CHECK(sigfillset(&some) == 0 && sigdelset(&some, SIGTERM) == 0);
    CHECK(pthread_sigmask(SIG_SETMASK, &some, NULL) == 0);
    checkStays(blockedSignals);
}

static const char* alternateStack(void) {
    stack_t stack;
    CHECK(sigaltstack(NULL, &stack) == 0);
    return textOf("%p %zu %d", stack.ss_sp, stack.ss_size, stack.ss_flags);
}

CASE(the_alternate_signal_stack_of_a_thread_stays) {
    const stack_t stack = {.ss_sp = caseMemory(AlternateStackSize), .ss_size = AlternateStackSize};
    CHECK(sigaltstack(&stack, NULL) == 0);
    checkStays(alternateStack);
}

static const char* umaskText(void) {
    const mode_t mask = umask(0);
    umask(mask);
    return textOf("%o", mask);
}

CASE(the_umask_stays_and_is_heeded) {
    umask(Umask);
    checkStays(umaskText);
    struct stat about;
    CHECK(stat(pathOf("everything.png"), &about) == 0);
    CHECK_INT(0666 & ~Umask, about.st_mode & 0777);
}

static const char* folderText(void) {
    char* folder = getcwd(NULL, 0);
    CHECK(folder != NULL);
    const char* text = textOf("%s", folder);
    free(folder);
    return text;
}

CASE(the_current_folder_stays) {
    CHECK(chdir(makeFolder("here")) == 0);
    checkStays(folderText);
}

static const char* priorityText(void) {
    struct sched_param parameters;
    CHECK(sched_getparam(0, &parameters) == 0);
    return textOf("%d %d %d", getpriority(PRIO_PROCESS, 0), sched_getscheduler(0),
                  parameters.sched_priority);
}

CASE(the_priority_stays) {
    CHECK(setpriority(PRIO_PROCESS, 0, Niceness) == 0);
    checkStays(priorityText);
}

static const char* threadName(void) {
    char name[NameSize];
    CHECK(prctl(PR_GET_NAME, name) == 0);
    return textOf("%s", name);
}

CASE(the_name_of_a_thread_stays) {
    CHECK(prctl(PR_SET_NAME, "host-main") == 0);
    checkStays(threadName);
}

static const char* limitsText(void) {
    const char* text = "";
    for (int resource = 0; resource < RLIM_NLIMITS; ++resource) {
        struct rlimit limit;
        CHECK(getrlimit((__rlimit_resource_t)resource, &limit) == 0);
        text = textOf("%s%ju %ju\n", text, (uintmax_t)limit.rlim_cur, (uintmax_t)limit.rlim_max);
    }
    return text;
}

CASE(the_limits_of_the_process_stay) {
    checkStays(limitsText);
}

static const char* timersText(void) {
    const int timers[] = {ITIMER_REAL, ITIMER_VIRTUAL, ITIMER_PROF};
    const char* text = "";
    for (size_t i = 0; i < sizeof timers / sizeof *timers; ++i) {
        struct itimerval timer;
        CHECK(getitimer(timers[i], &timer) == 0);
        text =
            textOf("%s%ld %d\n", text, (long)timer.it_interval.tv_sec, timer.it_value.tv_sec > 0);
    }
    return text;
}

CASE(the_timers_of_the_process_stay) {
    const struct itimerval hours = {{7200, 0}, {3600, 0}};
    CHECK(setitimer(ITIMER_REAL, &hours, NULL) == 0);
    checkStays(timersText);
}

static const char* randomNumbers(void) {
    const char* text = "";
    for (int i = 0; i < Numbers; ++i) {
        text = textOf("%s%d %ld %ld\n", text, rand(), random(), lrand48());
    }
    return text;
}

static void seed(void) {
    srand(4711);
    srandom(4711);
    srand48(4711);
}

CASE(the_random_numbers_of_the_host_stay) {
    seed();
    const char* expected = randomNumbers();
    seed();
    const pthread_t starter = startApplication();
    useEverything();
    CHECK(endApplication(starter) == NULL);
    CHECK_TEXT(expected, randomNumbers());
}

CASE(no_thread_is_added_but_that_of_the_application) {
    const int before = countThreads();
    const pthread_t starter = startApplication();
    useEverything();
    CHECK_INT(before + 1, countThreads());
    CHECK(endApplication(starter) == NULL);
    CHECK_INT(before, countThreads());
}
