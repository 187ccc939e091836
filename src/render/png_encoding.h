// PNG files of what the renderer draws.
#ifndef VELNOR_RENDER_PNG_ENCODING_H
#define VELNOR_RENDER_PNG_ENCODING_H

#include <QByteArray>
#include <QImage>

namespace velnor {

// The same bytes as Qt's writer makes of a picture in QImage::Format_ARGB32, with its resolution,
// in less time: Qt leaves the choice of filters to libpng, which takes as long for it as for all
// else. Empty where libpng does not take the picture, as one of more than a million columns.
QByteArray encodePng(const QImage& picture);

} // namespace velnor

#endif
