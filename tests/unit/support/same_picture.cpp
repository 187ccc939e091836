#include "support/same_picture.h"

#include "support/pictures.h"

#include <QPoint>

namespace {

struct Difference {
    int dots = 0;
    QPoint first;
};

Difference differenceOf(const QImage& left, const QImage& right) {
    Difference difference;
    for (int y = 0; y < left.height(); ++y) {
        const auto* leftLine = reinterpret_cast<const QRgb*>(left.constScanLine(y));
        const auto* rightLine = reinterpret_cast<const QRgb*>(right.constScanLine(y));
        for (int x = 0; x < left.width(); ++x) {
            if (leftLine[x] != rightLine[x] && difference.dots++ == 0) {
                difference.first = QPoint(x, y);
            }
        }
    }
    return difference;
}

std::string hex(QRgb dot) {
    return QString::number(dot, 16).toStdString();
}

} // namespace

testing::AssertionResult samePicture(const QImage& actual, const QImage& expected) {
    if (actual.size() != expected.size()) {
        return testing::AssertionFailure()
               << "is " << actual.width() << " x " << actual.height() << ", expected "
               << expected.width() << " x " << expected.height();
    }
    const QImage left = actual.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage right = expected.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const Difference difference = differenceOf(left, right);
    if (difference.dots == 0) {
        return testing::AssertionSuccess() << "the pictures are the same";
    }
    const QPoint first = difference.first;
    return testing::AssertionFailure()
           << difference.dots << " dots differ, the first at " << first.x() << ", " << first.y()
           << ": " << hex(left.pixel(first)) << ", expected " << hex(right.pixel(first));
}

bool isAllWhite(const QImage& picture) {
    return inkDots(picture) == 0;
}
