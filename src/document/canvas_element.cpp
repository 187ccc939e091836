#include "document/canvas_element.h"

#include "document/vocabulary.h"

#include <QDomDocument>

QDomElement velnor::firstItemList(const QDomDocument& document) {
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String(RootElement)) {
        return {};
    }
    return root.elementsByTagName(QLatin1String(ItemListElement)).at(0).toElement();
}

bool velnor::isCanvas(const QDomElement& itemList) {
    return itemList.attribute(QStringLiteral("class")) == QLatin1String(CanvasClass);
}
