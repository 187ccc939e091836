/* An allocator that fails when it is told to. It takes the place of the C library's in a program
 * that is linked with it, and so in every library of that process. */
#ifndef VELNOR_TESTS_FAILING_MEMORY_H
#define VELNOR_TESTS_FAILING_MEMORY_H

#include <limits.h>

/* Of the allocations that the calling thread makes from here on, number `first` (from 0) and the
 * `count` - 1 behind it fail. */
void failAllocations(long first, long count);
/* From here on none fails. Returns how many were made since failAllocations. */
long stopFailing(void);

enum { NoAllocation = -1, OneAllocation = 1 };
#define ALL_FURTHER_ALLOCATIONS LONG_MAX

#endif
