#include "render/blank_surface.h"

#include "library_limits.h"
#include "spare_memory.h"

#include <new>

bool velnor::isSurfaceSize(int width, int height) {
    return width > 0 && height > 0 && static_cast<qint64>(width) * height <= MaximumSurfaceDots;
}

QImage velnor::makeBlankSurface(int width, int height) {
    if (!isSurfaceSize(width, height)) {
        return {};
    }
    // Not through a painter, which reaches no further than 32,767 dots.
    requireMemoryForDots(static_cast<qint64>(width) * height);
    QImage surface(width, height, QImage::Format_ARGB32_Premultiplied);
    if (surface.isNull()) {
        throw std::bad_alloc();
    }
    surface.fill(Qt::white);
    return surface;
}
