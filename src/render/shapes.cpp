// Rectangles, ellipses and lines: black outlines, never filled.
#include "render/surface_painter.h"
#include "render/velnorimage.h"

namespace {

constexpr int SolidStyle = 0;

QPen outlinePen(int thickness, int style) {
    // A width of 0 or less is Qt's cosmetic pen of one dot.
    QPen pen(QBrush(Qt::black), qMax(thickness, 0), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (style != SolidStyle) {
        pen.setDashPattern({2.0, 1.0});
    }
    return pen;
}

} // namespace

template <typename Draw>
int VelnorImage::drawShape(const QPoint& position, const QSizeF& size, const QRectF& path,
                           int rotation, int thickness, int style, bool antialias, Draw draw) {
    if (!canBeDrawnOn()) {
        return -1;
    }
    const QTransform transform = rotationAbout(position, rotation);
    if (painting == Painting::Everything) {
        const double overhang = 1 + 2.0 * qMax(thickness, 0);
        velnor::paintInParts(*image, position, transform.mapRect(path), overhang,
                             [&](QPainter& painter, const QPoint& onPart) {
                                 painter.setTransform(rotationAbout(onPart, rotation));
                                 painter.setRenderHint(QPainter::Antialiasing, antialias);
                                 painter.setPen(outlinePen(thickness, style));
                                 draw(painter, QRectF(onPart, size));
                             });
    }
    recordCoverage(QRectF(position, size), transform);
    return 0;
}

int VelnorImage::DrawOverlayRectangle(int x, int y, int width, int height, int rotation,
                                      int thickness, int style, int radius, bool antialias) {
    const QPoint position(x, y);
    const QSizeF size(width, height);
    return drawShape(position, size, QRectF(position, size), rotation, thickness, style, antialias,
                     [radius](QPainter& painter, const QRectF& box) {
                         if (radius < 1) {
                             painter.drawRects(&box, 1);
                         } else {
                             painter.drawRoundedRect(box, radius, radius, Qt::AbsoluteSize);
                         }
                     });
}

int VelnorImage::DrawOverlayEllipse(int x, int y, int width, int height, int rotation,
                                    int thickness, int style, bool antialias) {
    const QPoint position(x, y);
    const QSizeF size(width, height);
    return drawShape(position, size, QRectF(position, size), rotation, thickness, style, antialias,
                     [](QPainter& painter, const QRectF& box) { painter.drawEllipse(box); });
}

int VelnorImage::DrawOverlayLine(int x, int y, int width, int height, int rotation, int thickness,
                                 int style, int length, bool antialias) {
    const QSizeF size(length > 0 ? length : width, thickness > 0 ? thickness : height);
    // The line's end takes the length as given, even where the box does not.
    const QRectF path(x, y + size.height() / 2, length, 0);
    return drawShape({x, y}, size, path, rotation, thickness, style, antialias,
                     [length](QPainter& painter, const QRectF& box) {
                         const double middle = box.y() + box.height() / 2;
                         const QLineF line(box.x(), middle, box.x() + length, middle);
                         painter.drawLines(&line, 1);
                     });
}
