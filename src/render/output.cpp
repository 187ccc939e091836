// From the surface to the file: crop, margins, resolution, format.
#include "document/dots.h"
#include "files/output_file.h"
#include "render/blank_surface.h"
#include "render/picture_file.h"
#include "render/sheet.h"
#include "render/velnorimage.h"
#include "spare_memory.h"

#include <QFileInfo>

#include <algorithm>
#include <new>

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr int RollMarginMillimetres = 2;
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

// The part of [start, start + length) that lies in [0, limit). In 64 bits: margins may be anything.
struct Stretch {
    Stretch(int start, int length, int limit)
        : first(qMax<qint64>(start, 0)),
          end(qMin<qint64>(static_cast<qint64>(start) + length, limit)) {}

    bool isEmpty() const { return end <= first; }

    qint64 first;
    qint64 end;
};

// Copies the dots as they are, alpha included, to (left, top), and cuts what lies outside. Not
// through a painter, which reaches no further than 32,767 dots.
void copyDots(const QImage& source, QImage& target, int left, int top) {
    const Stretch columns(left, source.width(), target.width());
    const Stretch rows(top, source.height(), target.height());
    if (columns.isEmpty() || rows.isEmpty()) {
        return;
    }
    for (qint64 y = rows.first; y < rows.end; ++y) {
        const auto* from =
            reinterpret_cast<const QRgb*>(source.constScanLine(static_cast<int>(y - top)));
        auto* to = reinterpret_cast<QRgb*>(target.scanLine(static_cast<int>(y)));
        std::copy(from + (columns.first - left), from + (columns.end - left), to + columns.first);
    }
}

// In the format that the name's suffix selects.
int write(const QImage& picture, const QString& name) {
    const QByteArray format = QFileInfo(name).suffix().toLatin1();
    const QByteArray bytes = velnor::encodePicture(picture, format);
    return velnor::writeOutputFile(name, bytes) ? Written : NotWritten;
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
    copyDots(source.convertToFormat(QImage::Format_ARGB32_Premultiplied), framed, left, top);
    return framed;
}

int VelnorImage::keptRows(int dpi) const {
    return cropAtCurrentY ? addRollMargin(currentY, dpi) : image->height();
}

QImage VelnorImage::keptPicture(int rows) const {
    if (!cropAtCurrentY) {
        return *image;
    }
    if (!velnor::isSurfaceSize(image->width(), rows)) {
        return {};
    }
    velnor::requireMemoryForDots(static_cast<qint64>(image->width()) * rows);
    QImage kept = image->copy(0, 0, image->width(), rows);
    if (kept.isNull()) {
        throw std::bad_alloc();
    }
    return kept;
}

QImage VelnorImage::finishedPicture(int dpi, int left, int top, int right, int bottom) const {
    const int rows = keptRows(dpi);
    // Nothing is copied where the margins surround the surface already.
    QImage picture = sheet && sheet->canFrame({left, top, right, bottom}, rows)
                         ? sheet->framed(rows)
                         : ApplyMarginsToImage(keptPicture(rows), left, top, right, bottom);
    // Every dot is opaque or clear, and the same in either format; writers take this one as it is.
    picture.reinterpretAsFormat(QImage::Format_ARGB32);
    setResolution(picture, dpi);
    return picture;
}

int VelnorImage::SaveImage(const char* fileName, int dpi, int left, int top, int right,
                           int bottom) const {
    if (!image) {
        return NoSurface;
    }
    return write(finishedPicture(dpi, left, top, right, bottom), QString::fromUtf8(fileName));
}

int VelnorImage::SaveImageBmp(const char* fileName, int dpi, int left, int top, int right,
                              int bottom) const {
    if (!image) {
        return NoSurface;
    }
    const QImage framed = finishedPicture(dpi, left, top, right, bottom);
    return write(framed.convertToFormat(QImage::Format_Mono, Qt::OrderedDither),
                 withBmpSuffix(QString::fromUtf8(fileName)));
}
