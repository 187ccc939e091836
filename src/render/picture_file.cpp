#include "render/picture_file.h"

#include "render/limits.h"

#include <QFileInfo>
#include <QImageReader>

QImage velnor::loadPicture(const QString& path) {
    if (!QFileInfo(path).isFile()) {
        return {};
    }
    QImageReader reader(path);
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > MaximumPictureDots) {
        return {};
    }
    return reader.read();
}
