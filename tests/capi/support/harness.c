#include "harness.h"

#include "files.h"

#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

typedef struct Block {
    struct Block* next;
    max_align_t content[];
} Block;

static Case* firstCase;
static _Atomic(Block*) firstBlock; /* threads of a case ask for memory too */
static char folder[4096];
static int failureOutput = STDERR_FILENO;

void addCase(Case* added) {
    added->next = firstCase;
    firstCase = added;
}

void failCase(const char* file, int line, const char* format, ...) {
    va_list values;
    va_start(values, format);
    dprintf(failureOutput, "%s:%d: ", file, line);
    vdprintf(failureOutput, format, values);
    dprintf(failureOutput, "\n");
    va_end(values);
    fflush(NULL);
    _exit(EXIT_FAILURE);
}

void sendFailuresTo(int descriptor) {
    failureOutput = descriptor;
}

void checkInt(const char* file, int line, const char* what, long long expected, long long actual) {
    if (expected != actual) {
        failCase(file, line, "%s: expected %lld, is %lld", what, expected, actual);
    }
}

void checkText(const char* file, int line, const char* what, const char* expected,
               const char* actual) {
    if (actual == NULL || strcmp(expected, actual) != 0) {
        failCase(file, line, "%s: expected \"%s\", is \"%s\"", what, expected,
                 actual != NULL ? actual : "(null)");
    }
}

void* caseMemory(size_t size) {
    Block* block = calloc(1, sizeof(Block) + size);
    if (block == NULL) {
        failCase(__FILE__, __LINE__, "no memory for %zu bytes", size);
    }
    block->next = atomic_load(&firstBlock);
    while (!atomic_compare_exchange_weak(&firstBlock, &block->next, block)) {
    }
    return block->content;
}

const char* scratchFolder(void) {
    return folder;
}

static void makeScratchFolder(void) {
    const char* parent = getenv("TMPDIR");
    snprintf(folder, sizeof folder, "%s/velnor-capi-XXXXXX", parent != NULL ? parent : "/tmp");
    if (mkdtemp(folder) == NULL) {
        failCase(__FILE__, __LINE__, "no scratch folder %s", folder);
    }
}

static int waitForCase(pid_t process) {
    int status = 0;
    if (waitpid(process, &status, 0) != process) {
        return EXIT_FAILURE;
    }
    if (WIFSIGNALED(status)) {
        fprintf(stderr, "ended by signal %d\n", WTERMSIG(status));
        return EXIT_FAILURE;
    }
    return WEXITSTATUS(status);
}

/* The case runs in a child, so that its scratch folder is removed even when it crashes. */
static int runCase(const Case* chosen) {
    makeScratchFolder();
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() == parent) {
            chosen->run();
        }
        return EXIT_SUCCESS;
    }
    const int result = child > 0 ? waitForCase(child) : EXIT_FAILURE;
    removeTree(folder);
    return result;
}

int main(int count, char** arguments) {
    for (const Case* known = firstCase; known != NULL; known = known->next) {
        if (count < 2) {
            puts(known->name);
        } else if (strcmp(known->name, arguments[1]) == 0) {
            return runCase(known);
        }
    }
    return EXIT_FAILURE;
}
