#include "render/picture_file.h"

#include "render/limits.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

QImage velnor::loadPicture(const QString& path) {
    if (!QFileInfo(path).isFile()) {
        return {};
    }
    QImageReader reader(path);
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > MaximumPictureDots) {
        return {};
    }
    QImage picture = reader.read();
    // Qt takes "@2x" in a file's name for a picture of half as many dots.
    picture.setDevicePixelRatio(1.0);
    return picture;
}

QByteArray velnor::encodePicture(const QImage& picture, const QByteArray& format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (picture.isNull() || !buffer.open(QIODevice::WriteOnly) ||
        !QImageWriter(&buffer, format).write(picture)) {
        return {};
    }
    return bytes;
}

bool velnor::writePictureFile(const QString& path, const QByteArray& bytes,
                              QIODevice::OpenMode mode) {
    QFile file(path);
    if (bytes.isEmpty() || path.isEmpty() || !file.open(mode)) {
        return false;
    }
    if (file.write(bytes) == bytes.size() && file.flush()) {
        return true;
    }
    // A device or a pipe stays.
    if (QFileInfo(path).isFile()) {
        file.remove();
    }
    return false;
}
