#include "batch/batch_run.h"
#include "command_line.h"
#include "commands/commands.h"

#include <algorithm>
#include <memory>
#include <thread>

namespace {

constexpr unsigned LargestJobs = 1024;
constexpr unsigned LargestSeconds = 24 * 60 * 60;

void requireOneUse(const tool::BatchOptions& options) {
    if (options.layout.document == "-") {
        throw tool::Failure(tool::ExitCode::Usage, "LAYOUT: a batch reads its layout from a file");
    }
    if (options.dryRun && options.summary == "-") {
        throw tool::Failure(tool::ExitCode::Usage,
                            "--summary: --dry-run writes names on standard output");
    }
}

void addWorkOptions(tool::CommandOptions& command, tool::BatchOptions& options) {
    options.workers.jobs = std::clamp(std::thread::hardware_concurrency(), 1U, LargestJobs);
    command.number("--jobs", options.workers.jobs, 1, LargestJobs, "N",
                   "Processes that draw, as many as processors unless given");
    command.number("--timeout", options.workers.secondsARow, 1, LargestSeconds, "SECONDS",
                   "Give up a row after so many seconds, 60 unless given");
    command.value(
        "--shard", [&options](const std::string& text) { options.shard = tool::parseShard(text); },
        "I/N", "Take each N-th row alone, beginning with row I");
    command.flag("--resume", options.resume, "Skip rows whose picture is there already");
    command.flag("--dry-run", options.dryRun, "Name the pictures without drawing them");
}

} // namespace

void tool::addBatch(CommandLine& line) {
    auto options = std::make_shared<BatchOptions>();
    CommandOptions command =
        line.add("batch", "Render one picture for each row of a data file", [options] {
            requireOneUse(*options);
            return runBatch(*options);
        });
    command.operand("LAYOUT", options->layout.document, "The layout document");
    addDataOptions(command, options->data);
    addOutputOptions(command, options->output,
                     "The pictures; {COLUMN} is a value of the row, {number} its number,\n"
                     "{number:06} with zeros before it, {{ and }} are braces");
    addWorkOptions(command, *options);
    command.value("--summary", options->summary, "FILE",
                  "Tell in JSON what was done; - is standard output");
    command.flag("--quiet", options->quiet, "Show no progress on a terminal");
    addValueOptions(command, options->layout);
    command.footer(
        "A column name replaces %name%, a column object.property sets an element, a column\n"
        "@object.link sets one by its link. Values of a row come after those of the options.\n"
        "A row that fails is told on standard error and stops no other.\n"
        "\n"
        "Examples:\n"
        "  velnorxmltoimg batch ticket.xml --data guests.csv -o 'out/{number}.png'\n"
        "  velnorxmltoimg batch ticket.xml --data guests.jsonl -o 'out/{guest}.png' --resume\n"
        "  velnorxmltoimg batch ticket.xml --data guests.csv -o 'out/{number:06}.png' --shard 2/8");
}
