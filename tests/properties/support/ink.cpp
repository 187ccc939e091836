#include "support/ink.h"

namespace {

constexpr int MiddleGrey = 128;

bool isDark(const QImage& grey, int x, int y) {
    return grey.rect().contains(x, y) && grey.constScanLine(y)[x] < MiddleGrey;
}

bool isDarkAround(const QImage& grey, int x, int y) {
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (isDark(grey, x + dx, y + dy)) {
                return true;
            }
        }
    }
    return false;
}

int loneDots(const QImage& grey, const QImage& other) {
    int count = 0;
    for (int y = 0; y < grey.height(); ++y) {
        for (int x = 0; x < grey.width(); ++x) {
            count += isDark(grey, x, y) && !isDarkAround(other, x, y) ? 1 : 0;
        }
    }
    return count;
}

} // namespace

testing::AssertionResult sameInkToOneDot(const QImage& actual, const QImage& expected) {
    const QImage left = actual.convertToFormat(QImage::Format_Grayscale8);
    const QImage right = expected.convertToFormat(QImage::Format_Grayscale8);
    const int added = loneDots(left, right);
    const int missing = loneDots(right, left);
    if (added == 0 && missing == 0) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << added << " dots are further than one dot from all that was expected, " << missing
           << " expected ones from all that is there";
}
