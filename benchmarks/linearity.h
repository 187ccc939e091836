// Ten times the work takes about ten times as long, and what a picture does not need costs nothing.
#ifndef VELNOR_BENCHMARKS_LINEARITY_H
#define VELNOR_BENCHMARKS_LINEARITY_H

#include "results.h"
#include "scenarios.h"
#include "surroundings.h"
#include "targets.h"

namespace bench {

void registerLinearity(const Scenarios& scenarios, const Settings& settings);
void printLinearity(const Results& results, Targets& targets);

} // namespace bench

#endif
