// From the document on disk to the record tree.
#include "document/canvas_element.h"
#include "document/dom_loading.h"
#include "document/dom_values.h"
#include "document/elements.h"
#include "document/item_fields.h"
#include "document/vocabulary.h"
#include "handler/velnorxml.h"
#include "library_limits.h"

#include <QDomDocument>

using velnor::ValueKind;

namespace {

constexpr int DefaultTextAntialiasing = 2;
constexpr int DefaultShapeAntialiasing = 0;

// One row of the canvas's table: an element and what its text sets.
struct CanvasField {
    velnor::Word word;
    void (*set)(VelnorDrawableCanvas& canvas, const QDomElement& element);
};

void setDpi(VelnorDrawableCanvas& canvas, const QDomElement& element) {
    canvas.dpi = velnor::integerOr(element.text(), velnor::DefaultDpi);
}

void setTextAntialiasing(VelnorDrawableCanvas& canvas, const QDomElement& element) {
    canvas.antialiasText = velnor::integerInRangeOr(element.text(), 0, 2, DefaultTextAntialiasing);
}

void setShapeAntialiasing(VelnorDrawableCanvas& canvas, const QDomElement& element) {
    canvas.antialiasShape =
        velnor::integerInRangeOr(element.text(), 0, 2, DefaultShapeAntialiasing);
}

void setRows(VelnorDrawableCanvas& canvas, const QDomElement& element) {
    VelnorXml::parseRowDefinitions(element, &canvas);
}

void setColumns(VelnorDrawableCanvas& canvas, const QDomElement& element) {
    VelnorXml::parseColumnDefinitions(element, &canvas);
}

constexpr CanvasField CanvasFields[] = {
    {{"dpi", ValueKind::Number}, setDpi},
    {{"antialiasText", ValueKind::NumberUpTo2}, setTextAntialiasing},
    {{"antialiasShape", ValueKind::NumberUpTo2}, setShapeAntialiasing},
    {{velnor::RowWords.list, ValueKind::GridDefinitions}, setRows},
    {{velnor::ColumnWords.list, ValueKind::GridDefinitions}, setColumns},
};

void applyCanvasField(VelnorDrawableCanvas& canvas, const QDomElement& child) {
    if (VelnorXml::parseCommonTagNam(&canvas, child)) {
        return;
    }
    const QString name = child.tagName();
    for (const CanvasField& field : CanvasFields) {
        if (name == QLatin1String(field.word.element)) {
            field.set(canvas, child);
            return;
        }
    }
}

// Calls `visit` with each child element; text and comments are passed over.
template <typename Visitor>
void visitChildElements(const QDomElement& parent, Visitor visit) {
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        visit(child);
    }
}

std::unique_ptr<VelnorDrawableCanvas> readCanvas(const QDomElement& itemList) {
    auto canvas = std::make_unique<VelnorDrawableCanvas>();
    visitChildElements(itemList,
                       [&](const QDomElement& child) { applyCanvasField(*canvas, child); });
    VelnorXml::FixCanvasRow(canvas.get());
    VelnorXml::FixCanvasColumn(canvas.get());
    return canvas;
}

velnor::ElementPointer readItem(const QDomElement& element, const VelnorDrawableCanvas& canvas,
                                const VelnorXml& handler) {
    velnor::ElementPointer item = velnor::makeItem(element.attribute(QStringLiteral("class")));
    if (!item) {
        return nullptr;
    }
    item->id = element.attribute(QStringLiteral("id"), QLatin1String(""));
    visitChildElements(element, [&](const QDomElement& child) {
        velnor::applyItemField(*item, canvas, child, handler);
    });
    VelnorXml::FixDrawableFields(item.get(), &canvas);
    return item;
}

// All levels: an item inside another item is an item of its own.
QDomNodeList itemElements(const QDomElement& itemList) {
    return itemList.elementsByTagName(QLatin1String(velnor::ItemElement));
}

// An item's texts hold those of the items inside it, so that few items inside one another would hold
// a large document many times over.
bool areTooMany(const QDomNodeList& elements, const QDomElement& itemList) {
    qint64 nestedText = 0;
    for (int i = 0; i < elements.size() && nestedText <= velnor::MaximumDocumentSize; ++i) {
        if (elements.at(i).parentNode() != itemList) {
            nestedText += elements.at(i).toElement().text().size();
        }
    }
    return elements.size() > velnor::MaximumItems || nestedText > velnor::MaximumDocumentSize;
}

std::unique_ptr<velnor::ElementList> readItems(const QDomNodeList& elements,
                                               const VelnorDrawableCanvas& canvas,
                                               const VelnorXml& handler) {
    auto items = std::make_unique<velnor::ElementList>();
    for (int i = 0; i < elements.size(); ++i) {
        if (auto item = readItem(elements.at(i).toElement(), canvas, handler)) {
            items->push_back(std::move(item));
        }
    }
    return items;
}

} // namespace

velnor::Words velnor::canvasWords() {
    Words words = commonWords();
    for (const CanvasField& field : CanvasFields) {
        words.push_back(field.word);
    }
    words.insert(words.end(), {PresentationWord, EjectRetractWord, EjectRetractTimeoutWord});
    return words;
}

int VelnorXml::Parse(VelnorDrawableCanvas** out) {
    if (out == nullptr) {
        return 1;
    }
    *out = nullptr;
    QDomDocument document(QStringLiteral("mydocument"));
    if (!velnor::loadXml(document, ReadXmlApplyTags())) {
        return 1;
    }
    applyObjectTagsToXmlDoc(document);
    const QDomElement itemList = velnor::firstItemList(document);
    if (itemList.isNull()) {
        return 1;
    }
    if (!velnor::isCanvas(itemList)) {
        return 0;
    }
    const QDomNodeList elements = itemElements(itemList);
    if (areTooMany(elements, itemList)) {
        return 1;
    }
    auto canvas = readCanvas(itemList);
    canvas->items = readItems(elements, *canvas, *this);
    canvas->PrintInfo();
    *out = canvas.release();
    return 0;
}
