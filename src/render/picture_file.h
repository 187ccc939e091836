// Picture files: those that items show are read, and those that the renderer writes are encoded.
#ifndef VELNOR_RENDER_PICTURE_FILE_H
#define VELNOR_RENDER_PICTURE_FILE_H

#include <QByteArray>
#include <QImage>

namespace velnor {

// The picture in the file, its format found by Qt. A null image for what is no regular file, what
// Qt cannot read, and what is too large or announces too many dots.
QImage loadPicture(const QString& path);

// The picture as a file of the format, such as "png", holds it. Empty for a null picture and for a
// format that Qt cannot write. Encoded apart from any file: libpng has words for a full disk.
QByteArray encodePicture(const QImage& picture, const QByteArray& format);

} // namespace velnor

#endif
