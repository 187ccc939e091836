#include "output/mono_picture.h"

namespace {

Qt::ImageConversionFlags conversionOf(tool::Mono mono) {
    switch (mono) {
    case tool::Mono::Ordered:
        return Qt::MonoOnly | Qt::OrderedDither;
    case tool::Mono::Diffuse:
        return Qt::MonoOnly | Qt::DiffuseDither;
    case tool::Mono::Threshold:
    case tool::Mono::No:
        break;
    }
    return Qt::MonoOnly | Qt::ThresholdDither;
}

// By rows: a painter reaches no further than 32,767 dots.
QImage onWhite(const QImage& picture) {
    QImage flat = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < flat.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(flat.scanLine(y));
        for (int x = 0; x < flat.width(); ++x) {
            const int alpha = qAlpha(row[x]);
            const auto over = [alpha](int colour) {
                return (colour * alpha + 255 * (255 - alpha) + 127) / 255;
            };
            row[x] = qRgb(over(qRed(row[x])), over(qGreen(row[x])), over(qBlue(row[x])));
        }
    }
    return flat.convertToFormat(QImage::Format_RGB32);
}

} // namespace

QImage tool::monoPicture(const QImage& picture, Mono mono) {
    QImage result = onWhite(picture).convertToFormat(QImage::Format_Mono, conversionOf(mono));
    // Qt may give either colour the number 0; drivers of printers want one order.
    if (result.colorCount() == 2 && qGray(result.color(0)) > qGray(result.color(1))) {
        return result;
    }
    result.invertPixels();
    result.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    return result;
}
