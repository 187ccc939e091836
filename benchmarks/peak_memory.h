// How far one image makes a process grow.
#ifndef VELNOR_BENCHMARKS_PEAK_MEMORY_H
#define VELNOR_BENCHMARKS_PEAK_MEMORY_H

#include "scenarios.h"

#include <string>

namespace bench {

// Makes the picture once and prints the growth of the process in KiB. What a process takes once, at
// its first image, is taken before: a small one with a text, a picture and a barcode.
void printPeakGrowth(const Scenarios& scenarios, const std::string& name);

// What a fresh process of this program prints: here the allocator may have room left over. In MiB;
// the middle one of three processes. Throws std::runtime_error where it fails.
double peakGrowth(const Scenarios& scenarios, const std::string& name);

} // namespace bench

#endif
