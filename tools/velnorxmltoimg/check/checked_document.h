// A document without a fault as the lints see it: its elements beside what the library made of them.
#ifndef VELNOR_TOOL_CHECKED_DOCUMENT_H
#define VELNOR_TOOL_CHECKED_DOCUMENT_H

#include "engine/document_view.h"
#include "engine/drawn_layout.h"
#include "layout/layout.h"
#include "render/barcode_item.h"

#include <QDomElement>

#include <optional>
#include <vector>

namespace tool {

struct CheckedItem {
    QDomElement element;
    const VelnorDrawableElement* parsed;         // as the document says
    const VelnorDrawableElement* drawn;          // as drawing left it
    std::optional<velnor::BarcodeSymbol> symbol; // of a barcode
    bool isIncomplete;                           // a placeholder in it has no value
};

class CheckedDocument {
public:
    // Both must live as long. Needs a QtHost.
    CheckedDocument(const Layout& givenLayout, const DocumentView& givenView);

    const Layout& layout() const { return checkedLayout; }
    const DocumentView& view() const { return documentView; }

    // The values of objects are in it.
    const QDomDocument& tree() const { return documentTree; }
    const QDomElement& canvasElement() const { return canvasOfTree; }

    // Before the grid got its lengths.
    const VelnorDrawableCanvas& parsedCanvas() const { return *parsed; }

    const DrawnLayout& drawn() const { return drawnLayout; }

    // Those of a known class, in document order.
    const std::vector<CheckedItem>& items() const { return checkedItems; }

private:
    const Layout& checkedLayout;
    const DocumentView& documentView;
    QDomDocument documentTree;
    QDomElement canvasOfTree;
    std::unique_ptr<VelnorDrawableCanvas> parsed;
    DrawnLayout drawnLayout;
    std::vector<CheckedItem> checkedItems;
};

} // namespace tool

#endif
