#include "support/failing_memory.h"

#include <errno.h>
#include <malloc.h>
#include <stdlib.h>

/* The C library's own, under the names by which it offers them to such programs. */
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void* __libc_memalign(size_t alignment, size_t size);

typedef struct Plan {
    int active;
    long calls;
    long first;
    long count;
} Plan;

static _Thread_local Plan plan;

void failAllocations(long first, long count) {
    const Plan fresh = {1, 0, first, count};
    plan = fresh;
}

long stopFailing(void) {
    plan.active = 0;
    return plan.calls;
}

static int fails(void) {
    if (!plan.active) {
        return 0;
    }
    const long number = plan.calls++;
    if (plan.first < 0 || number < plan.first || number - plan.first >= plan.count) {
        return 0;
    }
    errno = ENOMEM;
    return 1;
}

#define TAKES_THE_PLACE __attribute__((visibility("default")))

TAKES_THE_PLACE void* malloc(size_t size) {
    return fails() ? NULL : __libc_malloc(size);
}

TAKES_THE_PLACE void* calloc(size_t count, size_t size) {
    return fails() ? NULL : __libc_calloc(count, size);
}

TAKES_THE_PLACE void* realloc(void* block, size_t size) {
    return fails() ? NULL : __libc_realloc(block, size);
}

TAKES_THE_PLACE void* memalign(size_t alignment, size_t size) {
    return fails() ? NULL : __libc_memalign(alignment, size);
}

TAKES_THE_PLACE void* aligned_alloc(size_t alignment, size_t size) {
    return memalign(alignment, size);
}

TAKES_THE_PLACE int posix_memalign(void** block, size_t alignment, size_t size) {
    *block = memalign(alignment, size);
    return *block == NULL ? ENOMEM : 0;
}
