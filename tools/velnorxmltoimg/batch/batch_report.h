// What is told about the rows of a batch: on standard error, in the summary, on the terminal.
#ifndef VELNOR_TOOL_BATCH_REPORT_H
#define VELNOR_TOOL_BATCH_REPORT_H

#include "batch/progress.h"
#include "batch/summary.h"
#include "batch/worker_pool.h"

namespace tool {

class BatchReport {
public:
    // `summaryFile` as Summary takes it.
    BatchReport(const std::string& summaryFile, bool quiet) : summary(summaryFile), bar(quiet) {}

    void done() { count(counts.done); }
    void skipped() { count(counts.skipped); }

    // `data` is the name of the data file. The row's output may be empty: it has none then.
    void failed(const Task& task, const std::string& data, const std::string& reason);

    void showProgress(std::optional<double> share) { bar.show(counts, share); }
    bool showsProgress() const { return bar.isShown(); }

    // Writes the summary.
    void finish();

    bool hasFailures() const { return counts.failed > 0; }

private:
    void count(std::uint64_t& kind);

    Counts counts;
    Summary summary;
    Progress bar;
};

} // namespace tool

#endif
