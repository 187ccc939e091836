#include "support/random.h"

/* The generator "xorshift64*" of George Marsaglia and Sebastiano Vigna. */
uint32_t randomBelow(Random* random, uint32_t below) {
    random->state ^= random->state >> 12;
    random->state ^= random->state << 25;
    random->state ^= random->state >> 27;
    const uint64_t number = (random->state * 0x2545f4914f6cdd1dULL) >> 32;
    return (uint32_t)((number * below) >> 32);
}
