/*
 * Measures the library: benchmarks [OPTION]... [options of Google Benchmark]
 *
 *   --quick           few runs
 *   --accept          the pictures that the library makes become the golden files
 *   --targets=FILE    appends a line for each target to the file rather than printing it
 *   --plans=FOLDER    writes the plans of the examples into the folder and ends
 *
 * Prints Markdown tables. Exit status: 0 whatever was measured, 1 where a picture is not its golden
 * file or something could not run.
 */
#include "formats.h"
#include "linearity.h"
#include "peak_memory.h"
#include "pictures.h"
#include "queries.h"
#include "results.h"
#include "scenarios.h"
#include "stages.h"
#include "surroundings.h"
#include "targets.h"

#include <velnorxmltoimg.h>

#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <exception>

namespace {

constexpr int QuickRuns = 5;

int measureAll(const bench::Scenarios& scenarios, const bench::Settings& settings,
               const std::string& targetsFile) {
    bench::registerPictures(scenarios, settings);
    bench::registerFormats(scenarios, settings);
    bench::registerQueries(scenarios, settings);
    bench::registerStages(scenarios, settings);
    bench::registerLinearity(scenarios, settings);
    bench::Results results;
    benchmark::RunSpecifiedBenchmarks(&results);
    bench::Targets targets;
    bench::printPictures(scenarios, results, targets);
    bench::printFormats(results);
    bench::printQueries(results);
    bench::printStages(results);
    bench::printLinearity(results, targets);
    targets.print(targetsFile);
    // What they hold belongs to the application.
    benchmark::ClearRegisteredBenchmarks();
    return results.failed() ? 1 : 0;
}

int run(int argc, char** argv) {
    const QTemporaryDir ownScratch;
    bench::Settings settings;
    const std::string peak = bench::takeOption(argc, argv, "peak");
    const std::string scratch = bench::takeOption(argc, argv, "scratch");
    const std::string targets = bench::takeOption(argc, argv, "targets");
    const std::string plans = bench::takeOption(argc, argv, "plans");
    settings.scratch = scratch.empty() ? ownScratch.path() : QString::fromStdString(scratch);
    settings.accept = bench::takeFlag(argc, argv, "accept");
    if (bench::takeFlag(argc, argv, "quick")) {
        settings.runs = QuickRuns;
    }
    bench::isolate(settings.scratch);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    const QGuiApplication application(argc, argv);
    xmlToImgInitializeQtNoReturn();
    xmlToImgSetEmbeddedFontKeepFlag(1); // handlers of several documents live side by side
    const bench::Scenarios scenarios(settings.scratch);
    if (!peak.empty()) {
        bench::printPeakGrowth(scenarios, peak);
        return 0;
    }
    if (!plans.empty()) {
        bench::writeExamplePlans(scenarios, QString::fromStdString(plans));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    return benchmark::ReportUnrecognizedArguments(argc, argv)
               ? 1
               : measureAll(scenarios, settings, targets);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "benchmarks: %s\n", error.what());
        return 1;
    }
}
