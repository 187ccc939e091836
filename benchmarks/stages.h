// Where the time of an image goes.
#ifndef VELNOR_BENCHMARKS_STAGES_H
#define VELNOR_BENCHMARKS_STAGES_H

#include "results.h"
#include "scenarios.h"
#include "surroundings.h"

namespace bench {

void registerStages(const Scenarios& scenarios, const Settings& settings);
void printStages(const Results& results);

} // namespace bench

#endif
