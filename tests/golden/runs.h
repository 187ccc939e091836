// Running and accepting one case.
#ifndef VELNOR_GOLDEN_RUNS_H
#define VELNOR_GOLDEN_RUNS_H

#include "failure_records.h"
#include "golden_case.h"
#include "versions.h"

#include <QTextStream>

namespace golden {

enum Outcome { Passed = 0, Failed = 1, WrongUsage = 2, Skipped = 77 };

struct Surroundings {
    FailureRecords records;
    Versions versions; // of the libraries in this process
    QString scratch;
};

// Renders a case and compares. What there is to say is printed.
Outcome runCase(const GoldenCase& golden, const Surroundings& surroundings, QTextStream& out);

// Makes the picture of a case what the library renders now. Fails where that changed anything, so
// that nobody takes a run that accepts for one that tests.
Outcome acceptCase(const GoldenCase& golden, const Surroundings& surroundings, QTextStream& out);

} // namespace golden

#endif
