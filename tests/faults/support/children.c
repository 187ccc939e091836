#include "support/children.h"

#include "support/harness.h"
#include "support/layouts.h"

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

void renderInChild(const char* document, const char* output) {
    const pid_t child = fork();
    int status = 0;
    CHECK(child >= 0);
    if (child == 0) {
        render(document, output);
        _exit(EXIT_SUCCESS);
    }
    CHECK(waitpid(child, &status, 0) == child);
    CHECK_INT(0, status);
}
