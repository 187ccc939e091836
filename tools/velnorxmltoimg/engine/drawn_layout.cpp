#include "engine/drawn_layout.h"

#include "engine/document_view.h"
#include "render/composition.h"

namespace {

QImage draw(VelnorDrawableCanvas& canvas) {
    velnor::Composition composition(canvas);
    composition.measure();
    composition.layOut();
    composition.draw();
    return composition.picture();
}

} // namespace

tool::DrawnLayout::DrawnLayout(const DocumentView& view)
    : drawnCanvas(view.canvas()), canvasGrows(drawnCanvas->height == velnor::NotGiven),
      finished(draw(*drawnCanvas)) {}

bool tool::DrawnLayout::isDrawn(const VelnorDrawableElement& item) const {
    if (!velnor::isVisible(item)) {
        return false;
    }
    if (item.type == velnor::ImageKind) {
        const auto picture =
            pictures.ofFile(static_cast<const VelnorDrawableImage&>(item).filepath);
        return picture && !picture->isNull();
    }
    return item.type != velnor::BarcodeKind ||
           pictures.ofBarcode(static_cast<const VelnorDrawableBarcode&>(item)).has_value();
}
