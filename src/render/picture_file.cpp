#include "render/picture_file.h"

#include "files/input_file.h"
#include "library_limits.h"
#include "render/icon_file.h"
#include "render/picture_scan.h"
#include "render/png_encoding.h"
#include "spare_memory.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <iterator>

namespace {

// Qt converts larger pictures on threads that it starts and that stay in the host's process.
constexpr qsizetype ConvertedAtOnce = 64LL * 1024; // bytes

// As QImage::convertToFormat, a few rows after the other.
QImage convertByRows(const QImage& picture, QImage::Format format) {
    velnor::requireMemory(picture.sizeInBytes());
    QImage converted(picture.size(), format);
    converted.setDotsPerMeterX(picture.dotsPerMeterX());
    converted.setDotsPerMeterY(picture.dotsPerMeterY());
    const auto step =
        static_cast<int>(qMax<qsizetype>(ConvertedAtOnce / picture.bytesPerLine(), 1));
    for (int y = 0; y < converted.height(); y += step) {
        const int rows = qMin(step, picture.height() - y);
        const QImage strip(picture.constScanLine(y), picture.width(), rows, picture.bytesPerLine(),
                           picture.format());
        const QImage part = strip.convertToFormat(format);
        std::copy_n(part.constBits(), part.sizeInBytes(), converted.scanLine(y));
    }
    return converted;
}

qint64 dotsOf(const QSize& size) {
    return static_cast<qint64>(size.width()) * size.height();
}

// What the header of the file says. Empty where it says nothing or too much.
QSize announcedSize(const QImageReader& reader) {
    const QSize announced = reader.size();
    if (announced.width() <= 0) {
        return {};
    }
    // A height below 0 is that of a BMP file that begins with its top row.
    const qint64 height = qAbs<qint64>(announced.height());
    if (announced.width() * height > velnor::MaximumPictureDots) {
        return {};
    }
    return {announced.width(), static_cast<int>(height)};
}

// Qt looks a dot's colour up without asking whether the file's table reaches so far.
void completeColourTable(QImage& picture) {
    const int depth = picture.depth();
    if (depth > 8 || picture.pixelFormat().colorModel() != QPixelFormat::Indexed) {
        return;
    }
    QVector<QRgb> colours = picture.colorTable();
    while (colours.size() < 1 << depth) {
        colours.append(qRgb(255, 255, 255));
    }
    picture.setColorTable(colours);
}

QImage decoded(QIODevice& file, const QByteArray& format) {
    if (!velnor::isSafeToDecode(file, format)) {
        return {};
    }
    QImageReader reader(&file);
    const QSize size = announcedSize(reader);
    if (size.isEmpty()) {
        return {};
    }
    velnor::requireMemoryForDots(dotsOf(size));
    // Readers of files that end too early leave the rest of the dots as they are.
    QImage picture;
    if (reader.imageFormat() != QImage::Format_Invalid) {
        picture = QImage(size, reader.imageFormat());
        picture.fill(Qt::white);
    }
    if (!reader.read(&picture)) {
        return {};
    }
    completeColourTable(picture);
    // Qt takes "@2x" in a file's name for a picture of half as many dots.
    picture.setDevicePixelRatio(1.0);
    return picture;
}

QImage decodedIcon(QIODevice& file) {
    QByteArray png = velnor::pngInIcon(file);
    if (png.isEmpty()) {
        return velnor::bitmapInIcon(file);
    }
    QBuffer buffer(&png);
    return buffer.open(QIODevice::ReadOnly) ? decoded(buffer, "png") : QImage();
}

constexpr int DepthOfSurfaces = 32;

struct WrittenFormat {
    const char* name;
    QImage::Format dots;
};

// What the writers of these formats convert a picture to as a whole. Others go by rows themselves.
constexpr WrittenFormat WrittenFormats[] = {
    {"bmp", QImage::Format_ARGB32},     {"pbm", QImage::Format_ARGB32},
    {"pgm", QImage::Format_Grayscale8}, {"ppm", QImage::Format_ARGB32},
    {"xbm", QImage::Format_ARGB32},     {"xpm", QImage::Format_ARGB32},
};

QImage asWriterTakesIt(const QImage& picture, const QByteArray& format) {
    const QByteArray name = format.toLower();
    const auto* found =
        std::find_if(std::begin(WrittenFormats), std::end(WrittenFormats),
                     [&name](const WrittenFormat& row) { return name == row.name; });
    const bool asItIs = found == std::end(WrittenFormats) || picture.format() == found->dots ||
                        picture.depth() != DepthOfSurfaces;
    return asItIs ? picture : convertByRows(picture, found->dots);
}

} // namespace

QImage velnor::loadPicture(const QString& path) {
    InputFile file(path);
    if (!file.openUpTo(MaximumPictureFileSize)) {
        return {};
    }
    const QByteArray format = QImageReader(&file).format();
    return format == "ico" || format == "cur" ? decodedIcon(file) : decoded(file, format);
}

QByteArray velnor::encodePicture(const QImage& picture, const QByteArray& format) {
    requireMemory(0);
    if (picture.format() == QImage::Format_ARGB32 && format.toLower() == "png") {
        return encodePng(picture);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (picture.isNull() || !buffer.open(QIODevice::WriteOnly) ||
        !QImageWriter(&buffer, format).write(asWriterTakesIt(picture, format))) {
        return {};
    }
    return bytes;
}
