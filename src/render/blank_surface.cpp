#include "render/blank_surface.h"

#include "render/limits.h"
#include "render/surface_painter.h"

bool velnor::isSurfaceSize(int width, int height) {
    return width > 0 && height > 0 && static_cast<qint64>(width) * height <= MaximumSurfaceDots;
}

QImage velnor::makeBlankSurface(int width, int height) {
    if (!isSurfaceSize(width, height)) {
        return {};
    }
    QImage surface(width, height, QImage::Format_ARGB32_Premultiplied);
    SurfacePainter painter(surface);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(surface.rect(), Qt::white);
    return surface;
}
