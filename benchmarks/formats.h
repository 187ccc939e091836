// What the receipt costs in each format that a host would choose.
#ifndef VELNOR_BENCHMARKS_FORMATS_H
#define VELNOR_BENCHMARKS_FORMATS_H

#include "results.h"
#include "scenarios.h"
#include "surroundings.h"

namespace bench {

void registerFormats(const Scenarios& scenarios, const Settings& settings);
void printFormats(const Results& results);

} // namespace bench

#endif
