// Whether a host would notice over months what was measured over hours.
#ifndef VELNOR_TESTS_SOAK_VERDICT_H
#define VELNOR_TESTS_SOAK_VERDICT_H

#include "measurements.h"

#include <optional>
#include <string>
#include <vector>

namespace soak {

constexpr long WarmUpImages = 500;
// KiB since the warm-up, however many images follow it.
constexpr long AllowedGrowth = 1024; // of the process
constexpr long AllowedHeld = 128;    // of what was taken from malloc: it varies less

// Of a run, however long.
struct Course {
    void add(const Measurement& now);
    // Whether there was a warm-up and memory tells anything in this build.
    bool judgesMemory() const;
    long growth() const;
    long heldGrowth() const;

    std::optional<Measurement> first;
    std::optional<Measurement> warm;
    Measurement last;
};

// The rules that were broken; empty when none was.
std::vector<std::string> complaints(const Course& course);

// One line for humans.
std::string summary(const Course& course);

} // namespace soak

#endif
