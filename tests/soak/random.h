// Random choices that are the same on every machine for the same seed.
#ifndef VELNOR_TESTS_SOAK_RANDOM_H
#define VELNOR_TESTS_SOAK_RANDOM_H

#include <cstdint>
#include <random>

namespace soak {

class Random {
public:
    explicit Random(std::uint32_t seed) : engine(seed) {}

    // From 0 to limit - 1.
    size_t below(size_t limit) { return engine() % limit; }
    long between(long first, long last) {
        return first + static_cast<long>(below(static_cast<size_t>(last - first) + 1));
    }
    bool oneIn(size_t times) { return below(times) == 0; }

    template <typename List>
    auto& oneOf(List& list) {
        return list[below(std::size(list))];
    }

private:
    std::mt19937 engine;
};

} // namespace soak

#endif
