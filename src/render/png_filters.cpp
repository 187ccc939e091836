#include "render/png_filters.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// The loops in here are plain so that the compiler makes vector instructions of them.
namespace {

using Byte = unsigned char;
using velnor::PngFilter;

constexpr int BytesPerDot = 4;

// A byte, and those before it, above it, and before that one, in the same channel.
struct Neighbours {
    int left;
    int above;
    int aboveLeft;
};

struct NoPrediction {
    static int predict(const Neighbours&) { return 0; }
};

struct LeftPrediction {
    static int predict(const Neighbours& at) { return at.left; }
};

struct AbovePrediction {
    static int predict(const Neighbours& at) { return at.above; }
};

struct AveragePrediction {
    static int predict(const Neighbours& at) { return (at.left + at.above) / 2; }
};

struct PaethPrediction {
    static int predict(const Neighbours& at) {
        const int toLeft = std::abs(at.above - at.aboveLeft);
        const int toAbove = std::abs(at.left - at.aboveLeft);
        const int toAboveLeft = std::abs(at.left + at.above - 2 * at.aboveLeft);
        const int nearer = toAbove <= toAboveLeft ? at.above : at.aboveLeft;
        return toLeft <= toAbove && toLeft <= toAboveLeft ? at.left : nearer;
    }
};

template <typename Prediction>
Byte remainder(Byte byte, const Neighbours& at) {
    const auto difference = static_cast<Byte>(byte - Prediction::predict(at));
    const auto negated = static_cast<Byte>(-difference);
    return std::min(difference, negated);
}

// What the filter leaves of the row; more than `limit` is not summed up to its end.
template <typename Prediction>
unsigned sumOf(const Byte* row, const Byte* above, int size, unsigned limit) {
    constexpr int Stretch = 512;
    unsigned sum = 0;
    for (int i = 0; i < BytesPerDot; ++i) {
        sum += remainder<Prediction>(row[i], {0, above[i], 0});
    }
    for (int start = BytesPerDot; start < size && sum <= limit; start += Stretch) {
        const int end = std::min(start + Stretch, size);
        for (int i = start; i < end; ++i) {
            sum += remainder<Prediction>(row[i],
                                         {row[i - BytesPerDot], above[i], above[i - BytesPerDot]});
        }
    }
    return sum;
}

} // namespace

PngFilter velnor::choosePngFilter(const Byte* row, const Byte* above, int dots) {
    const int size = dots * BytesPerDot;
    // Most rows of a printout are white, as is the one above.
    if (row[0] != 0 && std::memcmp(row, above, static_cast<size_t>(size)) == 0) {
        return PngFilter::Up;
    }
    PngFilter best = PngFilter::None;
    unsigned least = sumOf<NoPrediction>(row, above, size, ~0U);
    const auto consider = [&](PngFilter filter, unsigned sum) {
        if (sum < least) {
            least = sum;
            best = filter;
        }
    };
    const bool hasLeft = dots > 1;
    if (hasLeft && least > 0) {
        consider(PngFilter::Sub, sumOf<LeftPrediction>(row, above, size, least));
    }
    if (least > 0) {
        consider(PngFilter::Up, sumOf<AbovePrediction>(row, above, size, least));
    }
    if (hasLeft && least > 0) {
        consider(PngFilter::Average, sumOf<AveragePrediction>(row, above, size, least));
    }
    if (hasLeft && least > 0) {
        consider(PngFilter::Paeth, sumOf<PaethPrediction>(row, above, size, least));
    }
    return best;
}
