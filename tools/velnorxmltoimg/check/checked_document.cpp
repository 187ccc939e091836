#include "check/checked_document.h"

#include "check/placeholders.h"
#include "document/canvas_element.h"
#include "document/vocabulary.h"

namespace {

std::vector<QDomElement> elementsOfKnownClass(const QDomElement& canvas) {
    const QStringList classes = velnor::itemClasses();
    const QDomNodeList nodes = canvas.elementsByTagName(QLatin1String(velnor::ItemElement));
    std::vector<QDomElement> elements;
    for (int i = 0; i < nodes.size(); ++i) {
        const QDomElement element = nodes.at(i).toElement();
        if (classes.contains(element.attribute(QStringLiteral("class")))) {
            elements.push_back(element);
        }
    }
    return elements;
}

std::optional<velnor::BarcodeSymbol> symbolOf(const VelnorDrawableElement& item) {
    if (item.type != velnor::BarcodeKind) {
        return std::nullopt;
    }
    return velnor::symbolOf(static_cast<const VelnorDrawableBarcode&>(item));
}

} // namespace

tool::CheckedDocument::CheckedDocument(const Layout& givenLayout, const DocumentView& givenView)
    : checkedLayout(givenLayout), documentView(givenView), documentTree(givenView.tree()),
      canvasOfTree(velnor::firstItemList(documentTree)), parsed(givenView.canvas()),
      drawnLayout(givenView) {
    const std::vector<QDomElement> elements = elementsOfKnownClass(canvasOfTree);
    for (size_t i = 0; i < elements.size() && i < parsed->items->size(); ++i) {
        const VelnorDrawableElement& item = *(*parsed->items)[i];
        checkedItems.push_back({elements[i], &item, drawnLayout.items().at(i).get(), symbolOf(item),
                                !placeholdersIn(elements[i].text()).empty()});
    }
}
