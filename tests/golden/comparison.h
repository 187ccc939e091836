// What tells two pictures apart: size, colour depth, resolution and pixels.
#ifndef VELNOR_GOLDEN_COMPARISON_H
#define VELNOR_GOLDEN_COMPARISON_H

#include <QImage>
#include <QString>

namespace golden {

struct PixelDifferences {
    int count = 0;
    int largest = 0; // of one channel
};

// The pixels that both pictures have.
PixelDifferences countDifferences(const QImage& expected, const QImage& actual);

// Empty where the pictures are the same, else what a person is told.
QString describeDifferences(const QImage& expected, const QImage& actual);

} // namespace golden

#endif
