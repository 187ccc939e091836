#include "support/deaths.h"

#include "support/harness.h"

#include <dlfcn.h>
#include <errno.h>
#include <execinfo.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

enum { HandlerStackSize = 64 * 1024, Tick = 100000 /* microseconds */, TicksPerSecond = 10 };

static Ending* ending; /* shared by parent and child */
static unsigned ticksLeft;

static const int deadly[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

static void noteStack(int number) {
    ending->signal = number;
    ending->frameCount = backtrace(ending->frames, MostFrames);
    signal(number, SIG_DFL);
    raise(number);
}

/* The child has one thread: what it waits for, nobody will let go. */
static int waitsForLock(void) {
    void* frames[MostFrames];
    const int count = backtrace(frames, MostFrames);
    for (int i = 0; i < count; ++i) {
        Dl_info found;
        if (dladdr(frames[i], &found) != 0 && found.dli_sname != NULL &&
            strstr(found.dli_sname, "lockInternal") != NULL) {
            return 1;
        }
    }
    return 0;
}

static void noteTick(int number) {
    if (--ticksLeft == 0 || waitsForLock()) {
        noteStack(number);
    }
}

static void watchForDeath(unsigned seconds) {
    const stack_t own = {.ss_sp = malloc(HandlerStackSize), .ss_size = HandlerStackSize};
    const struct sigaction dying = {.sa_handler = noteStack, .sa_flags = SA_ONSTACK | SA_NODEFER};
    const struct sigaction ticking = {.sa_handler = noteTick, .sa_flags = SA_ONSTACK | SA_RESTART};
    const struct itimerval ticks = {{0, Tick}, {0, Tick}};
    CHECK(own.ss_sp != NULL && sigaltstack(&own, NULL) == 0);
    for (size_t i = 0; i < sizeof deadly / sizeof *deadly; ++i) {
        CHECK(sigaction(deadly[i], &dying, NULL) == 0);
    }
    ticksLeft = seconds * TicksPerSecond;
    CHECK(sigaction(SIGALRM, &ticking, NULL) == 0);
    CHECK(setitimer(ITIMER_REAL, &ticks, NULL) == 0);
}

static const char* libraryOf(void* address) {
    Dl_info found;
    if (dladdr(address, &found) == 0 || found.dli_fname == NULL) {
        return "?";
    }
    const char* slash = strrchr(found.dli_fname, '/');
    return slash != NULL ? slash + 1 : found.dli_fname;
}

/* Those that end the process in the name of others, and this program itself. */
static int endsForOthers(const char* library) {
    const char* known[] = {"libc.so", "libstdc++", "libgcc_s", "linux-vdso", "ld-linux", "?"};
    for (size_t i = 0; i < sizeof known / sizeof *known; ++i) {
        if (strncmp(library, known[i], strlen(known[i])) == 0) {
            return 1;
        }
    }
    return strcmp(library, program_invocation_short_name) == 0;
}

static void findPlace(void) {
    snprintf(ending->where, sizeof ending->where, "none");
    for (int i = 0; i < ending->frameCount; ++i) {
        const char* library = libraryOf(ending->frames[i]);
        if (!endsForOthers(library)) {
            snprintf(ending->where, sizeof ending->where, "%s", library);
            return;
        }
    }
}

static void prepare(void) {
    if (ending == NULL) {
        ending =
            mmap(NULL, sizeof *ending, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        CHECK(ending != MAP_FAILED);
        /* Loads what it needs. */
        backtrace(ending->frames, MostFrames);
    }
    memset(ending, 0, sizeof *ending);
}

Ending endingOf(long (*work)(void* argument), void* argument, unsigned seconds) {
    prepare();
    const pid_t child = fork();
    CHECK(child >= 0);
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        watchForDeath(seconds);
        ending->result = work(argument);
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    CHECK(waitpid(child, &status, 0) == child);
    if (WIFSIGNALED(status)) {
        ending->signal = WTERMSIG(status);
        findPlace();
    } else {
        CHECK_INT(EXIT_SUCCESS, WEXITSTATUS(status));
    }
    return *ending;
}

void printStack(const Ending* shown) {
    for (int i = 0; i < shown->frameCount; ++i) {
        Dl_info found;
        const char* library = libraryOf(shown->frames[i]);
        if (dladdr(shown->frames[i], &found) == 0) {
            printf("    %p\n", shown->frames[i]);
            continue;
        }
        const long offset = (long)((char*)shown->frames[i] - (char*)found.dli_fbase);
        printf("    %s+0x%lx %s\n", library, offset,
               found.dli_sname != NULL ? found.dli_sname : "");
    }
}
