// The library beside writing the finished picture, and beside painting it by hand.
#ifndef VELNOR_BENCHMARKS_PICTURES_H
#define VELNOR_BENCHMARKS_PICTURES_H

#include "results.h"
#include "scenarios.h"
#include "surroundings.h"
#include "targets.h"

namespace bench {

void registerPictures(const Scenarios& scenarios, const Settings& settings);
void printPictures(const Scenarios& scenarios, const Results& results, Targets& targets);

// The plans of the examples, each NAME.plan, for programs that paint without the library.
void writeExamplePlans(const Scenarios& scenarios, const QString& folder);

} // namespace bench

#endif
