// Icons (ICO, CUR). Of the pictures in one, the first counts: a PNG file, or a bitmap with a mask. Qt's
// own reader takes the directory's word for the size of a PNG, and starts threads that stay in the
// host's process.
#ifndef VELNOR_RENDER_ICON_FILE_H
#define VELNOR_RENDER_ICON_FILE_H

#include <QByteArray>
#include <QImage>

class QIODevice;

namespace velnor {

// Empty if the icon's first picture is not a PNG file. A PNG file may be anything, hostile included.
QByteArray pngInIcon(QIODevice& icon);

// Of 1, 4, 8, 24 or 32 bits, and of at most 256 x 256 dots. Null if the icon's first picture is not
// such a bitmap, or ends too early.
QImage bitmapInIcon(QIODevice& icon);

} // namespace velnor

#endif
