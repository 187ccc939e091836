// Where random documents come from: a fixed list of seeds, and those that the program was given.
#ifndef VELNOR_TESTS_SEEDS_H
#define VELNOR_TESTS_SEEDS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// The same numbers on every machine for the same seed.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine(seed) {}

    // A whole number from `least` to `most`, both included.
    int number(int least, int most);
    bool oneIn(int chances) { return number(1, chances) == 1; }
    template <typename List>
    const typename List::value_type& oneOf(const List& list) {
        return *(list.begin() + number(0, static_cast<int>(list.size()) - 1));
    }

private:
    std::mt19937 engine;
};

const std::vector<std::uint32_t>& seeds();
// Adds a seed to those that every test tries; false when the text is no seed.
bool addSeed(const std::string& text);

// Calls `check` with fresh random numbers for each seed. A failure names the seed.
template <typename Check>
void forEachSeed(Check check) {
    for (const std::uint32_t seed : seeds()) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "seed " + std::to_string(seed));
        Random random(seed);
        check(random);
    }
}

#endif
