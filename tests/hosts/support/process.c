#include "support/process.h"

#include "support/files.h"
#include "support/harness.h"

#include <dirent.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <unistd.h>

enum { MostTargetSize = 512 };

int countThreads(void) {
    DIR* folder = opendir("/proc/self/task");
    CHECK(folder != NULL);
    int count = 0;
    for (const struct dirent* entry = readdir(folder); entry != NULL; entry = readdir(folder)) {
        count += entry->d_name[0] != '.';
    }
    CHECK(closedir(folder) == 0);
    return count;
}

static const char* openFile(int descriptor) {
    char target[MostTargetSize];
    const ssize_t length =
        readlink(textOf("/proc/self/fd/%d", descriptor), target, sizeof target - 1);
    CHECK(length >= 0);
    target[length] = '\0';
    return textOf("%d %s\n", descriptor, target);
}

const char* openFiles(void) {
    DIR* folder = opendir("/proc/self/fd");
    CHECK(folder != NULL);
    const char* text = "";
    for (const struct dirent* entry = readdir(folder); entry != NULL; entry = readdir(folder)) {
        const int descriptor = atoi(entry->d_name);
        if (entry->d_name[0] != '.' && descriptor != dirfd(folder)) {
            text = textOf("%s%s", text, openFile(descriptor));
        }
    }
    CHECK(closedir(folder) == 0);
    return text;
}

void checkChildSucceeds(pid_t child) {
    int status = -1;
    CHECK(child > 0);
    CHECK(waitpid(child, &status, 0) == child);
    if (WIFSIGNALED(status)) {
        failCase(__FILE__, __LINE__, "a child was ended by signal %d", WTERMSIG(status));
    }
    CHECK_INT(0, WEXITSTATUS(status));
}
