// One image of a canvas, step by step.
#ifndef VELNOR_RENDER_COMPOSITION_H
#define VELNOR_RENDER_COMPOSITION_H

#include "document/elements.h"
#include "render/item_pictures.h"
#include "render/item_places.h"
#include "render/sheet.h"
#include "render/velnorimage.h"

#include <memory>

namespace velnor {

// The steps follow one another as they stand here. They change the canvas: the height of a growing
// roll, the grid, and where the items lie and reach.
class Composition {
public:
    explicit Composition(VelnorDrawableCanvas& canvas);

    // Draws on the sheet what tells the sizes of the items, and records them in the items.
    void measure();

    // Gives the grid its lengths and every item its place.
    void layOut();

    void draw();

    // The picture as its file holds it.
    QImage picture() const;

    void save(const char* fileName) const;

private:
    int drawItems();

    VelnorDrawableCanvas& canvas;
    bool grows;
    ItemPictures pictures;
    std::unique_ptr<ItemPlaces> places;
    std::shared_ptr<Sheet> sheet;
    std::unique_ptr<VelnorImage> output;
};

} // namespace velnor

#endif
