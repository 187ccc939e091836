/* Numbers that look random and are the same in every run. */
#ifndef VELNOR_TESTS_RANDOM_H
#define VELNOR_TESTS_RANDOM_H

#include <stdint.h>

typedef struct Random {
    uint64_t state; /* any seed but 0 */
} Random;

/* A number from 0 to `below` - 1. */
uint32_t randomBelow(Random* random, uint32_t below);

#endif
