// Memory of exactly the size that the library is told, so that a sanitizer sees what lies beyond.
#ifndef VELNOR_TESTS_FUZZ_BUFFERS_H
#define VELNOR_TESTS_FUZZ_BUFFERS_H

#include "support/check.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace fuzz {

// A buffer that the library fills. Where the size is 0 or less there is one unit all the same,
// which must stay as it is.
template <typename Unit>
class Buffer {
public:
    // `room`: units that the library may touch, where they are more than it is told.
    explicit Buffer(int stated, int room = 0)
        : size(stated), count(static_cast<std::size_t>(std::max({stated, room, 1}))),
          memory(new Unit[count]) {
        std::fill_n(memory.get(), count, Guard);
    }

    Unit* data() { return memory.get(); }

    bool isUntouchedFrom(std::size_t first) const {
        return std::all_of(memory.get() + std::min(first, count), memory.get() + count,
                           [](Unit unit) { return unit == Guard; });
    }
    bool isUntouched() const { return isUntouchedFrom(0); }

    bool isZeroFrom(std::size_t first) const {
        return std::all_of(memory.get() + std::min(first, count), memory.get() + count,
                           [](Unit unit) { return unit == 0; });
    }

    // Up to the first zero, or everything.
    std::basic_string_view<Unit> text() const {
        const Unit* const end = std::find(memory.get(), memory.get() + count, Unit(0));
        return {memory.get(), static_cast<std::size_t>(end - memory.get())};
    }

    const int size;

private:
    static constexpr Unit Guard = static_cast<Unit>(0xa5a5);

    std::size_t count;
    std::unique_ptr<Unit[]> memory;
};

using NarrowBuffer = Buffer<char>;
using WideBuffer = Buffer<unsigned short>;

// A text that the library reads, without room behind it. `terminated`: a zero unit ends it.
template <typename Unit>
class Text {
public:
    Text(std::basic_string_view<Unit> units, bool terminated)
        : length(static_cast<int>(units.size())),
          memory(new Unit[std::max<std::size_t>(units.size() + (terminated ? 1 : 0), 1)]()) {
        std::copy(units.begin(), units.end(), memory.get());
    }

    const Unit* data() const { return memory.get(); }

    const int length;

private:
    std::unique_ptr<Unit[]> memory;
};

} // namespace fuzz

#endif
