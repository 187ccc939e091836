#include "document/dots.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

} // namespace

int velnor::saturate(qint64 value) {
    return static_cast<int>(qBound<qint64>(Lowest, value, Highest));
}

int velnor::roundToDots(double value) {
    return truncateToDots(std::floor(value + 0.5));
}

int velnor::truncateToDots(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<int>(qBound<double>(Lowest, value, Highest));
}
