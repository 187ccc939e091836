#include "support/descriptors.h"

#include "support/harness.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

enum { HighestTried = 4096 };

static rlim_t allowed;
static int taken[HighestTried];
static int takenCount;

static void setLimit(rlim_t count) {
    struct rlimit limit;
    CHECK(getrlimit(RLIMIT_NOFILE, &limit) == 0);
    if (allowed == 0) {
        allowed = limit.rlim_cur;
    }
    limit.rlim_cur = count;
    CHECK(setrlimit(RLIMIT_NOFILE, &limit) == 0);
}

/* Gaps below the highest open descriptor are filled, so that a limit of their number counts. */
void leaveDescriptors(int free) {
    int highest = 0;
    for (int descriptor = 0; descriptor < HighestTried; ++descriptor) {
        highest = fcntl(descriptor, F_GETFD) >= 0 ? descriptor : highest;
    }
    setLimit((rlim_t)highest + 1);
    int descriptor = 0;
    while ((descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC)) >= 0) {
        CHECK(takenCount < HighestTried);
        taken[takenCount++] = descriptor;
    }
    setLimit((rlim_t)(highest + 1 + free));
}

void allowDescriptors(void) {
    setLimit(allowed);
    while (takenCount > 0) {
        CHECK(close(taken[--takenCount]) == 0);
    }
}
