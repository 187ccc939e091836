// Items drawn on a surface: each kind by the drawing operations of the surface.
#ifndef VELNOR_RENDER_ITEM_DRAWING_H
#define VELNOR_RENDER_ITEM_DRAWING_H

#include "document/elements.h"
#include "render/item_pictures.h"
#include "render/velnorimage.h"

namespace velnor {

// What drawing an item needs besides the item.
struct Pass {
    VelnorImage& surface;
    const VelnorDrawableCanvas& canvas;
    ItemPictures& pictures;
};

void drawItem(const Pass& pass, VelnorDrawableElement& item);

// Draws every visible item in document order and calls `drawn` with it.
template <typename Drawn>
void drawVisibleItems(const Pass& pass, Drawn drawn) {
    if (!pass.canvas.items) {
        return;
    }
    for (const auto& item : *pass.canvas.items) {
        if (isVisible(*item)) {
            drawItem(pass, *item);
            drawn(*item);
        }
    }
}

} // namespace velnor

#endif
