// The one place where painters of a surface are opened.
#ifndef VELNOR_RENDER_SURFACE_PAINTER_H
#define VELNOR_RENDER_SURFACE_PAINTER_H

#include <QPainter>

#include <vector>

class SurfacePainter : public QPainter {
public:
    // Stays inactive, without a complaint, where there is nothing to paint on.
    explicit SurfacePainter(QImage& image);
};

namespace velnor {

// What one painter cannot reach is painted by others, each on a part of the surface's memory. Gives
// the parts for an item whose box is given and that reaches beyond it by no more than the overhang. An
// item within the reach of a painter has one part, the whole surface. One that lies further away has a
// part that begins near it, so that a border of parts runs through very long items alone.
std::vector<QRect> paintedParts(const QSize& surface, const QRectF& box, double overhang);

// The dots of a part, which are those of the surface.
QImage viewOfPart(QImage& surface, const QRect& part);

// Where the dot of a surface lies on a part of it.
QPoint positionOnPart(const QPoint& position, const QRect& part);

// Calls draw(painter, position) for each part, with the item's position there. It is moved before
// anything is computed with it, so that the dots are those of an item near the origin.
template <typename Draw>
void paintInParts(QImage& surface, const QPoint& position, const QRectF& box, double overhang,
                  Draw draw) {
    for (const QRect& part : paintedParts(surface.size(), box, overhang)) {
        const bool isWhole = part == surface.rect();
        QImage view = isWhole ? QImage() : viewOfPart(surface, part);
        SurfacePainter painter(isWhole ? surface : view);
        draw(painter, positionOnPart(position, part));
    }
}

} // namespace velnor

#endif
