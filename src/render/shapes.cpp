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
int VelnorImage::drawShape(const QRectF& box, int rotation, int thickness, int style,
                           bool antialias, Draw draw) {
    if (!canBeDrawnOn()) {
        return -1;
    }
    const QTransform transform =
        rotationAbout(static_cast<int>(box.x()), static_cast<int>(box.y()), rotation);
    if (painting == Painting::Everything) {
        SurfacePainter painter(*image);
        painter.setTransform(transform);
        painter.setRenderHint(QPainter::Antialiasing, antialias);
        painter.setPen(outlinePen(thickness, style));
        draw(painter);
    }
    recordCoverage(box, transform);
    return 0;
}

int VelnorImage::DrawOverlayRectangle(int x, int y, int width, int height, int rotation,
                                      int thickness, int style, int radius, bool antialias) {
    const QRectF box(x, y, width, height);
    return drawShape(box, rotation, thickness, style, antialias, [&](QPainter& painter) {
        if (radius < 1) {
            painter.drawRects(&box, 1);
        } else {
            painter.drawRoundedRect(box, radius, radius, Qt::AbsoluteSize);
        }
    });
}

int VelnorImage::DrawOverlayEllipse(int x, int y, int width, int height, int rotation,
                                    int thickness, int style, bool antialias) {
    const QRectF box(x, y, width, height);
    return drawShape(box, rotation, thickness, style, antialias,
                     [&](QPainter& painter) { painter.drawEllipse(box); });
}

int VelnorImage::DrawOverlayLine(int x, int y, int width, int height, int rotation, int thickness,
                                 int style, int length, bool antialias) {
    const QRectF box(x, y, length > 0 ? length : width, thickness > 0 ? thickness : height);
    const double middle = box.y() + box.height() / 2;
    // The line's end takes the length as given, even where the box does not.
    const QLineF line(x, middle, static_cast<double>(x) + length, middle);
    return drawShape(box, rotation, thickness, style, antialias,
                     [&](QPainter& painter) { painter.drawLines(&line, 1); });
}
