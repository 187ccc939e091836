#include "render/text_places.h"

#include <algorithm>

velnor::TextPlaces::TextPlaces(const VelnorDrawableCanvas& measuredCanvas)
    : canvas(measuredCanvas) {
    if (!canvas.items) {
        return;
    }
    for (const auto& item : *canvas.items) {
        if (isVisible(*item) && item->type == TextKind) {
            places.push_back({item.get(), QPoint(item->x, item->y)});
        }
    }
}

bool velnor::TextPlaces::areInsideInBothPasses() const {
    const QRectF surface(0, 0, canvas.width, canvas.height);
    return std::all_of(places.begin(), places.end(), [&surface](const Place& place) {
        const QRectF& measured = place.item->boundingBox;
        const QPointF shift = QPointF(place.item->x, place.item->y) - place.measuredAt;
        return surface.contains(measured) && surface.contains(measured.translated(shift));
    });
}
