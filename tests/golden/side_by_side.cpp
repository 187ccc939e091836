#include "side_by_side.h"

#include <QFontDatabase>
#include <QPainter>

#include <algorithm>
#include <array>

namespace golden {

namespace {

constexpr int Gap = 12;
constexpr int LabelHeight = 20;
constexpr int LabelPixels = 13;
constexpr int NarrowestColumn = 80;
constexpr QRgb Background = 0xffc8d2dc;

QRgb pale(QRgb colour) {
    constexpr int Lightest = 235;
    constexpr int Darkest = 150;
    const int grey = Darkest + (Lightest - Darkest) * qGray(colour) / 255;
    return qRgb(grey, grey, grey);
}

QFont labelFont() {
    QFontDatabase::addApplicationFont(QStringLiteral(GOLDEN_FONTS "/LiberationSans-Regular.ttf"));
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(LabelPixels);
    return font;
}

} // namespace

QImage differenceMask(const QImage& expected, const QImage& actual) {
    const QImage left = expected.convertToFormat(QImage::Format_ARGB32);
    const QImage right = actual.convertToFormat(QImage::Format_ARGB32);
    QImage mask(left.size().expandedTo(right.size()), QImage::Format_RGB32);
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            const bool same =
                left.valid(x, y) && right.valid(x, y) && left.pixel(x, y) == right.pixel(x, y);
            mask.setPixel(x, y, same ? pale(left.pixel(x, y)) : DifferenceColour);
        }
    }
    return mask;
}

QImage sideBySide(const QImage& expected, const QImage& difference, const QImage& actual) {
    const std::array<const QImage*, 3> pictures = {&expected, &difference, &actual};
    const std::array<QLatin1String, 3> labels = {
        QLatin1String("expected"), QLatin1String("difference"), QLatin1String("actual")};
    int width = Gap;
    int height = 0;
    for (const QImage* picture : pictures) {
        width += std::max(picture->width(), NarrowestColumn) + Gap;
        height = std::max(height, picture->height());
    }
    QImage sheet(width, LabelHeight + height + Gap, QImage::Format_RGB32);
    sheet.fill(Background);
    QPainter painter(&sheet);
    painter.setFont(labelFont());
    int x = Gap;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        painter.drawText(x, LabelHeight - (LabelHeight - LabelPixels), labels[i]);
        painter.drawImage(x, LabelHeight, *pictures[i]);
        x += std::max(pictures[i]->width(), NarrowestColumn) + Gap;
    }
    return sheet;
}

} // namespace golden
