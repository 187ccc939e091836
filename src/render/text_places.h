// Where the texts of a canvas lie in the measuring and in the drawing pass.
#ifndef VELNOR_RENDER_TEXT_PLACES_H
#define VELNOR_RENDER_TEXT_PLACES_H

#include "document/elements.h"

#include <QPoint>
#include <QRectF>

#include <vector>

namespace velnor {

// Made between measuring and layout, asked after layout.
class TextPlaces {
public:
    explicit TextPlaces(const VelnorDrawableCanvas& measuredCanvas);

    // Qt loads no letters of a text that lies outside. What lies inside in one pass alone makes
    // other letters, those that are drawn as paths, depend on what the process drew before.
    bool areInsideInBothPasses() const;

private:
    struct Place {
        const VelnorDrawableElement* item;
        QPoint measuredAt;
    };

    const VelnorDrawableCanvas& canvas;
    std::vector<Place> places;
};

} // namespace velnor

#endif
