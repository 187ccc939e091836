// What Google Benchmark found, by benchmark and counter.
#ifndef VELNOR_BENCHMARKS_RESULTS_H
#define VELNOR_BENCHMARKS_RESULTS_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// Keeps the medians of the repetitions, and tells on standard error what is running and what failed.
class Results : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    // Whether a benchmark of that name ran; none did where a filter left it out or it failed.
    bool has(const std::string& benchmark) const { return medians.count(benchmark) != 0; }
    double median(const std::string& benchmark, const std::string& counter) const;
    // In milliseconds: what the benchmark is about.
    double time(const std::string& benchmark) const { return median(benchmark, "time"); }
    bool failed() const { return anyFailed; }

private:
    std::map<std::string, std::map<std::string, double>> medians;
    bool anyFailed = false;
};

// A Markdown table, its columns as wide as their widest cell. Numbers stand at the right.
void printTable(const std::string& title, const std::vector<std::vector<std::string>>& rows);

std::string milliseconds(double value);
std::string ratio(double value);
std::string mebibytes(double value);

} // namespace bench

#endif
