// What a failed case shows: the expected picture, where it differs, and the actual one.
#ifndef VELNOR_GOLDEN_SIDE_BY_SIDE_H
#define VELNOR_GOLDEN_SIDE_BY_SIDE_H

#include <QImage>

namespace golden {

constexpr QRgb DifferenceColour = 0xffd40000;

// As large as both pictures together: red where they differ, a pale grey copy of the expected
// picture elsewhere.
QImage differenceMask(const QImage& expected, const QImage& actual);

// The three pictures in a row, each below its label. A missing picture leaves its place empty.
QImage sideBySide(const QImage& expected, const QImage& difference, const QImage& actual);

} // namespace golden

#endif
