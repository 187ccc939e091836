#include "batch/progress.h"

#include <unistd.h>

#include <cmath>
#include <iostream>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds Pause(200);
constexpr int BarWidth = 24;

std::string barOf(double share) {
    const auto filled = static_cast<size_t>(std::lround(share * BarWidth));
    return '[' + std::string(filled, '#') + std::string(BarWidth - filled, ' ') + "] " +
           std::to_string(std::lround(share * 100)) + " %  ";
}

} // namespace

tool::Progress::Progress(bool quiet)
    : shown(!quiet && isatty(STDERR_FILENO) != 0), start(Clock::now()), next(start + Pause) {}

double tool::Progress::seconds() const {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void tool::Progress::show(const Counts& counts, std::optional<double> share) {
    if (!shown || Clock::now() < next) {
        return;
    }
    next = Clock::now() + Pause;
    clear();
    std::cerr << (share ? barOf(*share) : std::string()) << counts.done << " done";
    if (counts.skipped > 0) {
        std::cerr << ", " << counts.skipped << " skipped";
    }
    if (counts.failed > 0) {
        std::cerr << ", " << counts.failed << " failed";
    }
    std::cerr << ", " << std::lround(static_cast<double>(counts.done) / seconds()) << " a second"
              << std::flush;
    onScreen = true;
}

void tool::Progress::clear() {
    if (onScreen) {
        std::cerr << "\r\033[K" << std::flush;
        onScreen = false;
    }
}
