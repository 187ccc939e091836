// The seeds of the random orders: three fixed ones and those that the program was given.
#ifndef VELNOR_TESTS_DETERMINISM_SEEDS_H
#define VELNOR_TESTS_DETERMINISM_SEEDS_H

#include <cstdint>
#include <vector>

inline std::vector<std::uint32_t>& orderSeeds() {
    static std::vector<std::uint32_t> seeds = {1, 2, 3};
    return seeds;
}

#endif
