// A layout after it was drawn: where its items landed.
#ifndef VELNOR_TOOL_DRAWN_LAYOUT_H
#define VELNOR_TOOL_DRAWN_LAYOUT_H

#include "document/elements.h"
#include "render/item_pictures.h"

#include <QImage>

#include <memory>

namespace tool {

class DocumentView;

class DrawnLayout {
public:
    // Of a document without a fault. Needs a QtHost.
    explicit DrawnLayout(const DocumentView& view);

    // The records as drawing left them: VelnorDrawableElement::drawnBox in dots of the canvas. The
    // height is that of the roll where the canvas grows.
    const VelnorDrawableCanvas& canvas() const { return *drawnCanvas; }

    // In document order, hidden ones included.
    const velnor::ElementList& items() const { return *drawnCanvas->items; }

    bool grows() const { return canvasGrows; }

    // With its margins.
    const QImage& picture() const { return finished; }

    // False for what is hidden, for a picture file that is none, and for a symbol that zint refuses.
    bool isDrawn(const VelnorDrawableElement& item) const;

private:
    std::unique_ptr<VelnorDrawableCanvas> drawnCanvas;
    bool canvasGrows;
    QImage finished;
    mutable velnor::ItemPictures pictures;
};

} // namespace tool

#endif
