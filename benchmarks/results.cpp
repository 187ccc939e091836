#include "results.h"

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

std::string formatted(double value, int decimals) {
    std::string text(64, '\0');
    const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    text.resize(static_cast<size_t>(length));
    return text;
}

using Row = std::vector<std::string>;

std::vector<size_t> widthsOf(const std::vector<Row>& rows) {
    std::vector<size_t> widths(rows.front().size(), 3);
    for (const Row& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    return widths;
}

// The first column holds names, all others hold numbers.
void printRow(const Row& row, const std::vector<size_t>& widths) {
    for (size_t i = 0; i < row.size(); ++i) {
        const int width = static_cast<int>(widths[i]);
        std::printf(i == 0 ? "| %-*s " : "| %*s ", width, row[i].c_str());
    }
    std::puts("|");
}

} // namespace

bool Results::ReportContext(const Context&) {
    return true;
}

void Results::ReportRuns(const std::vector<Run>& runs) {
    const auto failed =
        std::find_if(runs.begin(), runs.end(), [](const Run& run) { return run.error_occurred; });
    if (failed != runs.end()) {
        anyFailed = true;
        std::fprintf(stderr, "%s: %s\n", failed->run_name.function_name.c_str(),
                     failed->error_message.c_str());
        return;
    }
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        if (run.aggregate_name == "median") {
            std::fprintf(stderr, "measured %s\n", name.c_str());
            medians[name]["time"] = run.GetAdjustedRealTime();
            for (const auto& [counter, value] : run.counters) {
                medians[name][counter] = value;
            }
        }
    }
}

double Results::median(const std::string& benchmark, const std::string& counter) const {
    return medians.at(benchmark).at(counter);
}

void printTable(const std::string& title, const std::vector<Row>& rows) {
    if (rows.size() < 2) {
        return;
    }
    std::printf("\n### %s\n\n", title.c_str());
    const std::vector<size_t> widths = widthsOf(rows);
    printRow(rows.front(), widths);
    for (size_t i = 0; i < widths.size(); ++i) {
        const std::string line(widths[i] + 1, '-');
        std::printf(i == 0 ? "|%s-" : "|%s:", line.c_str());
    }
    std::puts("|");
    for (size_t i = 1; i < rows.size(); ++i) {
        printRow(rows[i], widths);
    }
    std::fflush(stdout);
}

std::string milliseconds(double value) {
    return formatted(value, value < 0.1 ? 4 : value < 10 ? 2 : 1);
}

std::string ratio(double value) {
    return formatted(value, 2);
}

std::string mebibytes(double value) {
    return formatted(value, 1);
}

} // namespace bench
