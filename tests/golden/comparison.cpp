#include "comparison.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace golden {

namespace {

int largestStep(QRgb left, QRgb right) {
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                     std::abs(qBlue(left) - qBlue(right)), std::abs(qAlpha(left) - qAlpha(right))});
}

QString sizeOf(const QImage& picture) {
    return QStringLiteral("%1 x %2").arg(picture.width()).arg(picture.height());
}

QString resolutionOf(const QImage& picture) {
    return QStringLiteral("%1 x %2").arg(picture.dotsPerMeterX()).arg(picture.dotsPerMeterY());
}

QString describePixels(const PixelDifferences& differences) {
    return QStringLiteral("%1 %2, by %3 at most")
        .arg(differences.count)
        .arg(differences.count == 1 ? QLatin1String("pixel differs")
                                    : QLatin1String("pixels differ"))
        .arg(differences.largest);
}

} // namespace

PixelDifferences countDifferences(const QImage& expected, const QImage& actual) {
    const QImage left = expected.convertToFormat(QImage::Format_ARGB32);
    const QImage right = actual.convertToFormat(QImage::Format_ARGB32);
    const QSize common = left.size().boundedTo(right.size());
    PixelDifferences found;
    for (int y = 0; y < common.height(); ++y) {
        for (int x = 0; x < common.width(); ++x) {
            const int step = largestStep(left.pixel(x, y), right.pixel(x, y));
            found.count += step > 0 ? 1 : 0;
            found.largest = std::max(found.largest, step);
        }
    }
    return found;
}

QString describeDifferences(const QImage& expected, const QImage& actual) {
    const QString pattern = QStringLiteral("the %1 is %2, expected is %3");
    QStringList found;
    if (expected.size() != actual.size()) {
        found << pattern.arg(QLatin1String("size"), sizeOf(actual), sizeOf(expected));
    }
    if (expected.depth() != actual.depth()) {
        found << pattern.arg(QLatin1String("number of bits of a pixel"),
                             QString::number(actual.depth()), QString::number(expected.depth()));
    }
    if (resolutionOf(expected) != resolutionOf(actual)) {
        found << pattern.arg(QLatin1String("resolution in dots per metre"), resolutionOf(actual),
                             resolutionOf(expected));
    }
    if (expected.size() == actual.size()) {
        const PixelDifferences differences = countDifferences(expected, actual);
        if (differences.count > 0) {
            found << describePixels(differences);
        }
    }
    return found.join(QLatin1String("; "));
}

} // namespace golden
