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
    // qRound works on the integers beside the value, so the outermost ones are kept from it.
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= Lowest + 1.0) {
        return Lowest;
    }
    if (value >= Highest - 1.0) {
        return Highest;
    }
    return qRound(value);
}

int velnor::truncateToDots(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<int>(qBound<double>(Lowest, value, Highest));
}
