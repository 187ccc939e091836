// Picture files: those that items show, and those that the renderer writes.
#ifndef VELNOR_RENDER_PICTURE_FILE_H
#define VELNOR_RENDER_PICTURE_FILE_H

#include <QByteArray>
#include <QIODevice>
#include <QImage>

namespace velnor {

// The picture in the file, its format found by Qt. A null image for what is no regular file (a
// pipe would block the host), what Qt cannot read, and what announces too many dots.
QImage loadPicture(const QString& path);

// The picture as a file of the format, such as "png", holds it. Empty for a null picture and for a
// format that Qt cannot write. Encoded apart from any file: libpng has words for a full disk.
QByteArray encodePicture(const QImage& picture, const QByteArray& format);

// Writes the bytes to the file, opened in the mode. False for no bytes and where that fails; no
// part of a file is left then.
bool writePictureFile(const QString& path, const QByteArray& bytes, QIODevice::OpenMode mode);

} // namespace velnor

#endif
