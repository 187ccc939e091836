#include "check/lone_item.h"

#include "render/item_drawing.h"

#include <QImage>

#include <cmath>

namespace {

constexpr int Paper = 230; // of 255: a shade that thermal paper does not show
constexpr qint64 MostDots = 32LL * 1000 * 1000;

int outlineOf(const VelnorDrawableElement& item) {
    switch (item.type) {
    case velnor::RectangleKind:
        return static_cast<const VelnorDrawableRectangle&>(item).thickness;
    case velnor::EllipseKind:
        return static_cast<const VelnorDrawableEllipse&>(item).thickness;
    default:
        return 0;
    }
}

QRect inkIn(const QImage& picture) {
    int left = picture.width();
    int right = -1;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* dots = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (tool::isInk(dots[x])) {
                left = qMin(left, x);
                right = qMax(right, x);
                top = top < 0 ? y : top;
                bottom = y;
            }
        }
    }
    return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

void drawAt(VelnorImage& surface, const VelnorDrawableCanvas& canvas,
            const VelnorDrawableElement& drawn, const QPoint& corner) {
    velnor::ItemPictures pictures;
    // A visitor may change what it visits; this one copies it.
    auto& item = const_cast<VelnorDrawableElement&>(drawn);
    velnor::visitItem(item, [&](auto& record) {
        auto moved = record;
        moved.x -= corner.x();
        moved.y -= corner.y();
        velnor::drawItem({surface, canvas, pictures}, moved);
    });
}

} // namespace

bool tool::isInk(QRgb dot) {
    return qAlpha(dot) != 0 && qGray(dot) < Paper;
}

QRect tool::wholeDots(const QRectF& rectangle) {
    static constexpr double Farthest = 1 << 28;
    const auto near = [](double edge) {
        return static_cast<int>(qBound(-Farthest, edge, Farthest));
    };
    return QRect(
        QPoint(near(std::floor(rectangle.left())), near(std::floor(rectangle.top()))),
        QPoint(near(std::ceil(rectangle.right())) - 1, near(std::ceil(rectangle.bottom())) - 1));
}

QRect tool::reachOf(const VelnorDrawableElement& drawn) {
    const double outline = std::ceil(qMax(outlineOf(drawn), 0) / 2.0);
    return wholeDots(drawn.drawnBox.normalized().adjusted(-outline, -outline, outline, outline));
}

std::optional<QRect> tool::inkOf(const VelnorDrawableElement& drawn,
                                 const VelnorDrawableCanvas& canvas) {
    constexpr int Spare = 2;
    const QRect reach = reachOf(drawn).adjusted(-Spare, -Spare, Spare, Spare);
    if (qint64(reach.width()) * reach.height() > MostDots) {
        return std::nullopt;
    }
    VelnorImage surface(reach.width(), reach.height());
    drawAt(surface, canvas, drawn, reach.topLeft());
    return inkIn(*surface.picture()).translated(reach.topLeft());
}
