// What a host asks of a handler besides images.
#ifndef VELNOR_BENCHMARKS_QUERIES_H
#define VELNOR_BENCHMARKS_QUERIES_H

#include "results.h"
#include "scenarios.h"
#include "surroundings.h"

namespace bench {

void registerQueries(const Scenarios& scenarios, const Settings& settings);
void printQueries(const Results& results);

} // namespace bench

#endif
