// From the surface to the file: crop, margins, resolution, format.
#include "document/dots.h"
#include "render/blank_surface.h"
#include "render/surface_painter.h"
#include "render/velnorimage.h"

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr int RollMarginMillimetres = 2;
constexpr int DefaultQuality = -1;
constexpr int Written = -1; // an inverted sense that callers of the save operations rely on
constexpr int NotWritten = 0;
constexpr int NoSurface = -1;

void setResolution(QImage& image, int dpi) {
    if (dpi == -1) {
        return;
    }
    const int dotsPerMetre = velnor::roundToDots(dpi * 10000.0 / 254.0);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
}

// The name up to its last point, wherever that stands, with ".bmp" behind it.
QString withBmpSuffix(const QString& name) {
    return name.left(name.lastIndexOf(QLatin1Char('.'))) + QLatin1String(".bmp");
}

} // namespace

int VelnorImage::addRollMargin(int y, int dpi) {
    const double margin = static_cast<qint64>(dpi) * RollMarginMillimetres / MillimetresPerInch;
    return velnor::saturate(static_cast<qint64>(y) + velnor::roundToDots(margin));
}

QImage VelnorImage::ApplyMarginsToImage(const QImage& source, int left, int top, int right,
                                        int bottom) {
    const int width = velnor::saturate(static_cast<qint64>(source.width()) + left + right);
    const int height = velnor::saturate(static_cast<qint64>(source.height()) + top + bottom);
    QImage framed = velnor::makeBlankSurface(width, height);
    SurfacePainter painter(framed);
    if (painter.isActive() && !source.isNull()) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(left, top, source);
    }
    return framed;
}

QImage VelnorImage::keptPicture(int dpi) const {
    if (!cropAtCurrentY) {
        return *image;
    }
    const int height = addRollMargin(currentY, dpi);
    if (!velnor::isSurfaceSize(image->width(), height)) {
        return {};
    }
    return image->copy(0, 0, image->width(), height);
}

int VelnorImage::SaveImage(const char* fileName, int dpi, int left, int top, int right,
                           int bottom) const {
    if (!image) {
        return NoSurface;
    }
    QImage framed = ApplyMarginsToImage(keptPicture(dpi), left, top, right, bottom);
    setResolution(framed, dpi);
    return framed.save(QString::fromUtf8(fileName), nullptr, DefaultQuality) ? Written : NotWritten;
}

int VelnorImage::SaveImageBmp(const char* fileName, int dpi, int left, int top, int right,
                              int bottom) const {
    if (!image) {
        return NoSurface;
    }
    const QImage framed = ApplyMarginsToImage(keptPicture(dpi), left, top, right, bottom);
    QImage dithered = framed.convertToFormat(QImage::Format_Mono, Qt::OrderedDither);
    setResolution(dithered, dpi);
    return dithered.save(withBmpSuffix(QString::fromUtf8(fileName)), nullptr, DefaultQuality)
               ? Written
               : NotWritten;
}
