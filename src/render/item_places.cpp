#include "render/item_places.h"

#include "document/dots.h"

#include <algorithm>

velnor::ItemPlaces::ItemPlaces(const VelnorDrawableCanvas& measuredCanvas)
    : canvas(measuredCanvas) {
    if (!canvas.items) {
        return;
    }
    for (const auto& item : *canvas.items) {
        if (isVisible(*item)) {
            places.push_back({item.get(), QPoint(item->x, item->y)});
        }
    }
}

QRectF velnor::ItemPlaces::whereDrawn(const Place& place) {
    return place.item->boundingBox.translated(QPointF(place.item->x, place.item->y) -
                                              place.measuredAt);
}

int velnor::ItemPlaces::expectedEnd() const {
    double end = 0;
    for (const Place& place : places) {
        end = std::max(end, whereDrawn(place).bottom());
    }
    return roundToDots(end);
}
