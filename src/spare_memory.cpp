#include "spare_memory.h"

#include <cstdlib>
#include <memory>
#include <new>

#include <sys/mman.h>

void velnor::requireMemory(qint64 bytes) {
    // Taken from the system and given back untouched: this costs no time, and leaves the heap alone.
    const auto size = static_cast<size_t>(bytes + SpareMemory);
    void* const memory =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory != MAP_FAILED) {
        munmap(memory, size);
        return;
    }
    // What earlier calls have freed may still be with the heap.
    const std::unique_ptr<void, decltype(&std::free)> ofHeap(std::malloc(size), &std::free);
    if (!ofHeap) {
        throw std::bad_alloc();
    }
}

void velnor::requireMemoryForDots(qint64 dots) {
    constexpr qint64 BytesPerDot = 4;
    requireMemory(dots * BytesPerDot);
}
