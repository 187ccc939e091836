// What the command line asks for.
#ifndef VELNOR_TESTS_SOAK_OPTIONS_H
#define VELNOR_TESTS_SOAK_OPTIONS_H

#include <cstdint>

namespace soak {

struct Options {
    long images = 20500;
    long minutes = 0; // unless 0, the time counts and not the images
    int threads = 1;  // 1: the main thread draws
    std::uint32_t seed;
};

// Throws std::invalid_argument. Without a seed the options get a random one.
Options optionsFrom(int argc, char** argv);

} // namespace soak

#endif
