// The one place where painters of a surface are opened.
#ifndef VELNOR_RENDER_SURFACE_PAINTER_H
#define VELNOR_RENDER_SURFACE_PAINTER_H

#include <QPainter>

class SurfacePainter : public QPainter {
public:
    // Stays inactive, without a complaint, where there is nothing to paint on.
    explicit SurfacePainter(QImage& image);
};

#endif
