// A line on the terminal that tells how far a batch has come.
#ifndef VELNOR_TOOL_PROGRESS_H
#define VELNOR_TOOL_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <optional>

namespace tool {

struct Counts {
    std::uint64_t rows = 0;
    std::uint64_t done = 0;
    std::uint64_t skipped = 0;
    std::uint64_t failed = 0;
};

// Only where standard error is a terminal.
class Progress {
public:
    explicit Progress(bool quiet);
    ~Progress() { clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    bool isShown() const { return shown; }

    // `share` of the data is read, if that is known. Not more often than can be seen.
    void show(const Counts& counts, std::optional<double> share);

    // Before another line is written.
    void clear();

    double seconds() const;

private:
    bool shown;
    bool onScreen = false;
    std::chrono::steady_clock::time_point start;
    std::chrono::steady_clock::time_point next;
};

} // namespace tool

#endif
