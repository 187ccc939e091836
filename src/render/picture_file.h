// Reading the picture files that items show.
#ifndef VELNOR_RENDER_PICTURE_FILE_H
#define VELNOR_RENDER_PICTURE_FILE_H

#include <QImage>

namespace velnor {

// The picture in the file, its format found by Qt. A null image for what is no regular file (a
// pipe would block the host), what Qt cannot read, and what announces too many dots.
QImage loadPicture(const QString& path);

} // namespace velnor

#endif
