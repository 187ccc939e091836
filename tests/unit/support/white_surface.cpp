#include "support/white_surface.h"

namespace {

constexpr int DotsPerMetreAt96Dpi = 3780;

} // namespace

QImage whiteSurface(int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    picture.setDotsPerMeterX(DotsPerMetreAt96Dpi);
    picture.setDotsPerMeterY(DotsPerMetreAt96Dpi);
    return picture;
}
