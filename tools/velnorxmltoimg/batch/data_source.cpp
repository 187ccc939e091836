#include "batch/data_source.h"

#include "batch/csv_rows.h"
#include "batch/json_rows.h"
#include "command_options.h"
#include "failure.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace {

using tool::ExitCode;
using tool::Failure;

constexpr size_t PortionSize = size_t{64} * 1024;

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), std::string::npos, end) == 0;
}

[[noreturn]] void failToRead(const std::string& name) {
    throw Failure(ExitCode::UnreadableDocument,
                  "cannot read " + name + ": " + std::strerror(errno));
}

std::string formatOf(const tool::DataOptions& options) {
    if (!options.format.empty()) {
        return options.format;
    }
    for (const char* const format : {"csv", "jsonl"}) {
        if (endsWith(options.file, std::string(".") + format)) {
            return format;
        }
    }
    throw Failure(ExitCode::Usage, "--data: the suffix of '" + options.file +
                                       "' is neither .csv nor .jsonl; --format tells what it is");
}

char delimiterOf(const std::string& text) {
    const std::string delimiter = text == "\\t" ? "\t" : text;
    const bool usable = delimiter.size() == 1 && delimiter[0] > 0 && delimiter[0] != '"' &&
                        delimiter[0] != '\r' && delimiter[0] != '\n';
    if (!usable) {
        throw Failure(ExitCode::Usage, "--delimiter: '" + text + "' is not one ASCII character");
    }
    return delimiter[0];
}

std::unique_ptr<tool::RowReader> readerFor(const tool::DataOptions& options) {
    const char delimiter = delimiterOf(options.delimiter);
    if (formatOf(options) == "csv") {
        return std::make_unique<tool::CsvRows>(delimiter);
    }
    return std::make_unique<tool::JsonRows>();
}

// Opening a pipe that nobody writes into yet must not wait. Standard input stays open, and as it is,
// for whoever else has it.
tool::Descriptor openData(const std::string& file) {
    return tool::Descriptor(file == "-" ? fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                        : open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

} // namespace

void tool::addDataOptions(CommandOptions& command, DataOptions& options) {
    command.value("--data", options.file, "FILE", "The rows; - is standard input",
                  Presence::Required);
    command.choice(
        "--format", {"csv", "jsonl"},
        [&options](const std::string& word) { options.format = word; },
        "What the rows are, where the suffix does not tell");
    command.value("--delimiter", options.delimiter, "CHARACTER",
                  "What separates the values of a CSV file, a comma unless given");
}

tool::DataSource::DataSource(const DataOptions& options)
    : shownName(options.file == "-" ? "standard input" : "'" + options.file + "'"),
      reader(readerFor(options)), portion(PortionSize) {
    file = openData(options.file);
    struct stat status {};
    if (file.get() == -1 || fstat(file.get(), &status) != 0) {
        failToRead(shownName);
    }
    size = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

void tool::DataSource::readMore() {
    const ssize_t count = read(file.get(), portion.data(), portion.size());
    if (count < 0 && errno != EINTR && errno != EAGAIN) {
        failToRead(shownName);
    }
    if (count > 0) {
        bytesRead += static_cast<std::uint64_t>(count);
        reader->feed(portion.data(), static_cast<size_t>(count), rows);
    }
    if (count == 0) {
        reader->finish(rows);
    }
    atEnd = count == 0 || reader->isLost();
}

tool::Row tool::DataSource::takeRow() {
    Row row = std::move(rows.front());
    rows.pop_front();
    return row;
}

std::optional<double> tool::DataSource::share() const {
    if (size == 0) {
        return std::nullopt;
    }
    return std::min(1.0, static_cast<double>(bytesRead) / static_cast<double>(size));
}
