// Where the items of a canvas lie in the measuring and in the drawing pass.
#ifndef VELNOR_RENDER_ITEM_PLACES_H
#define VELNOR_RENDER_ITEM_PLACES_H

#include "document/elements.h"

#include <QPoint>
#include <QRectF>

#include <vector>

namespace velnor {

// Made between measuring and layout, asked after layout.
class ItemPlaces {
public:
    explicit ItemPlaces(const VelnorDrawableCanvas& measuredCanvas);

    // The row below the lowest visible item, as measuring tells: drawing may differ by a rounding,
    // or where a picture has become another one.
    int expectedEnd() const;

private:
    struct Place {
        const VelnorDrawableElement* item;
        QPoint measuredAt;
    };

    static QRectF whereDrawn(const Place& place);

    const VelnorDrawableCanvas& canvas;
    std::vector<Place> places;
};

} // namespace velnor

#endif
