#include "document/canvas_element.h"

#include <QDomDocument>

QDomElement velnor::firstItemList(const QDomDocument& document) {
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("VelnorRoot")) {
        return {};
    }
    return root.elementsByTagName(QStringLiteral("VelnorItems")).at(0).toElement();
}

bool velnor::isCanvas(const QDomElement& itemList) {
    return itemList.attribute(QStringLiteral("class")) == QLatin1String("canvas");
}
