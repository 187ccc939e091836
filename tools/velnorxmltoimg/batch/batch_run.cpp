#include "batch/batch_run.h"

#include "batch/batch_report.h"
#include "batch/claimed_names.h"
#include "batch/ending_signals.h"
#include "batch/output_name.h"
#include "output/fresh_folder.h"
#include "text.h"

#include <poll.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace {

using tool::ExitCode;
using tool::Failure;
using tool::Row;

constexpr int ProgressMilliseconds = 250;

// Where pictures arise: beside those that are finished, so that a rename brings them there. A dry run
// leaves the output folder alone.
std::unique_ptr<tool::FreshFolder> makeWorkingFolder(const std::string& output, bool dryRun) {
    if (dryRun) {
        return std::make_unique<tool::FreshFolder>();
    }
    std::error_code error;
    std::filesystem::create_directories(output, error);
    if (error) {
        throw Failure(ExitCode::NotWritten,
                      "cannot make the folder '" + output + "': " + error.message());
    }
    return std::make_unique<tool::FreshFolder>(QString::fromStdString(output));
}

void requireText(const Row& row) {
    for (const tool::Value& value : row.values) {
        if (!tool::isText(value.column) || !tool::isText(value.text)) {
            throw Failure(ExitCode::SomeFailed,
                          "its '" + value.column + "' holds bytes that are not UTF-8 text");
        }
    }
}

class BatchRun {
public:
    explicit BatchRun(const tool::BatchOptions& givenOptions)
        : options(givenOptions), data(options.data), outputName(options.output.picture),
          report(options.summary, options.quiet),
          workingFolder(makeWorkingFolder(outputName.folder(), options.dryRun)),
          pool(options.workers, workingFolder->filePath(QString()).toStdString()) {}

    ExitCode run() {
        while (!isFinished()) {
            waitForSomething();
            if (signals.take()) {
                return ExitCode::SomeFailed;
            }
            serveWorkers();
            readData();
            handleRows();
            report.showProgress(data.share());
        }
        pool.finish();
        report.finish();
        return report.hasFailures() ? ExitCode::SomeFailed : ExitCode::Done;
    }

private:
    bool isFinished() const {
        return data.isAtEnd() && !data.hasRow() && pool.isReady() && !pool.hasTasks();
    }

    bool wantsData() const { return !data.isAtEnd() && !data.hasRow(); }

    int milliseconds() const {
        auto pause = std::chrono::milliseconds(report.showsProgress() ? ProgressMilliseconds : -1);
        if (const auto deadline = pool.nextDeadline()) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(
                *deadline - std::chrono::steady_clock::now());
            pause = pause.count() < 0 ? left : std::min(pause, left);
            pause = std::max(pause, std::chrono::milliseconds(0));
        }
        return static_cast<int>(pause.count());
    }

    void waitForSomething() {
        descriptors.assign(1, {signals.descriptor(), POLLIN, 0});
        if (wantsData()) {
            descriptors.push_back({data.descriptor(), POLLIN, 0});
        }
        pool.addDescriptors(descriptors);
        poll(descriptors.data(), descriptors.size(), milliseconds());
    }

    void serveWorkers() {
        for (const tool::TaskResult& result : pool.serve()) {
            if (result.failure.empty()) {
                report.done();
            } else {
                report.failed(result.task, data.name(), result.failure);
            }
        }
    }

    void readData() {
        const bool isReadable = descriptors.size() > 1 && descriptors[1].fd == data.descriptor() &&
                                descriptors[1].revents != 0;
        if (wantsData() && isReadable) {
            data.readMore();
        }
        if (!prepared && data.columns() != nullptr) {
            outputName.requireColumns(*data.columns());
            prepare(*data.columns());
        } else if (!prepared && data.isAtEnd()) {
            prepare({}); // there is not a single good row
        }
    }

    void prepare(const std::vector<std::string>& columns) {
        prepared = true;
        if (!outputName.isUnique()) {
            claimedNames = std::make_unique<tool::ClaimedNames>();
        }
        pool.start(
            {options.layout, options.output.mono, columns, outputName.formatSample(), {}, 0});
    }

    bool canHandle() const {
        return !prepared || (options.dryRun ? pool.isReady() : pool.hasIdle());
    }

    void handleRows() {
        while (data.hasRow() && canHandle()) {
            handle(data.takeRow());
        }
        if (data.hasRow() && prepared) {
            pool.grow();
        }
    }

    void handle(const Row& row) {
        tool::Task task{row.number, row.line, {}};
        const bool isMine = options.shard.takes(row.number);
        const bool isEnd = data.isLost() && !data.hasRow(); // of all shards
        try {
            if (row.fault) {
                throw Failure(ExitCode::SomeFailed, *row.fault);
            }
            requireText(row);
            task.output = outputName.expand(row);
            claim(task);
            if (isMine) {
                draw(task, row);
            }
        } catch (const Failure& failure) {
            if (failure.code != ExitCode::SomeFailed) {
                throw;
            }
            if (isMine || isEnd) {
                report.failed(task, data.name(), failure.what());
            }
        }
    }

    // Rows of other shards too: the same rows fail, however many shards there are.
    void claim(const tool::Task& task) {
        if (claimedNames) {
            if (const auto earlier = claimedNames->claim(task.output, task.row)) {
                throw Failure(ExitCode::SomeFailed, "'" + task.output + "' is the output of row " +
                                                        std::to_string(*earlier) + " already");
            }
        }
    }

    void draw(const tool::Task& task, const Row& row) {
        std::error_code error;
        if (options.resume && std::filesystem::is_regular_file(task.output, error)) {
            report.skipped();
        } else if (options.dryRun) {
            tellName(task.output);
            report.done();
        } else {
            makeFolder(task.output);
            pool.give(task, row.values);
        }
    }

    static void tellName(const std::string& output) {
        if (!(std::cout << output << '\n')) {
            throw Failure(ExitCode::NotWritten, "standard output cannot be written");
        }
    }

    void makeFolder(const std::string& output) const {
        std::error_code error;
        if (outputName.makesFolders()) {
            std::filesystem::create_directories(std::filesystem::path(output).parent_path(), error);
        }
        if (error) {
            throw Failure(ExitCode::SomeFailed,
                          "cannot make the folder of '" + output + "': " + error.message());
        }
    }

    const tool::BatchOptions& options;
    tool::EndingSignals signals; // before all that is to be tidied first
    tool::DataSource data;
    tool::OutputName outputName;
    tool::BatchReport report;
    std::unique_ptr<tool::FreshFolder> workingFolder;
    tool::WorkerPool pool;
    std::unique_ptr<tool::ClaimedNames> claimedNames;
    std::vector<pollfd> descriptors;
    bool prepared = false;
};

} // namespace

tool::ExitCode tool::runBatch(const BatchOptions& options) {
    return BatchRun(options).run();
}
