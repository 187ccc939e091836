#include "render/vector_registers.h"

#ifdef __x86_64__

#include <immintrin.h>

namespace {

__attribute__((target("avx"))) void clearUpperHalves() {
    _mm256_zeroupper();
}

} // namespace

void velnor::clearUpperVectorRegisters() {
    if (__builtin_cpu_supports("avx")) {
        clearUpperHalves();
    }
}

#else

void velnor::clearUpperVectorRegisters() {}

#endif
