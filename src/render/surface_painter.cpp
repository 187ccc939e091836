#include "render/surface_painter.h"

#include <QImage>

SurfacePainter::SurfacePainter(QImage& image) {
    if (!image.isNull() && begin(&image)) {
        // Keeps aliased lines of two dots and more on the dots that layouts were designed for.
        setRenderHint(QPainter::Qt4CompatiblePainting);
    }
}
