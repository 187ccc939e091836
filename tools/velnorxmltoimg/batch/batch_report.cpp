#include "batch/batch_report.h"

#include "complaint.h"

void tool::BatchReport::count(std::uint64_t& kind) {
    ++kind;
    ++counts.rows;
}

void tool::BatchReport::failed(const Task& task, const std::string& data,
                               const std::string& reason) {
    count(counts.failed);
    bar.clear();
    complain("row " + std::to_string(task.row) + ": " + data + ", line " +
             std::to_string(task.line) + ": " + reason);
    Json failure = {
        {"row", task.row}, {"line", task.line}, {"output", nullptr}, {"reason", reason}};
    if (!task.output.empty()) {
        failure["output"] = task.output;
    }
    summary.addFailure(failure);
}

void tool::BatchReport::finish() {
    summary.finish(counts, bar.seconds());
    bar.clear();
}
