// New white surfaces.
#ifndef VELNOR_RENDER_BLANK_SURFACE_H
#define VELNOR_RENDER_BLANK_SURFACE_H

#include <QImage>

namespace velnor {

// True for a size that a surface can have: at least one dot, and not beyond the limit.
bool isSurfaceSize(int width, int height);

// A premultiplied ARGB image of opaque white; a null image for any other size.
QImage makeBlankSurface(int width, int height);

} // namespace velnor

#endif
