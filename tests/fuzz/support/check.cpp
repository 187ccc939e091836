#include "support/check.h"

#include <cstdio>
#include <cstdlib>

void fuzz::fail(const char* file, int line, const char* rule) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, rule);
    std::abort();
}
