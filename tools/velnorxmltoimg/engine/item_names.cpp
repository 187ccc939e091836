#include "engine/item_names.h"

#include "document/item_fields.h"
#include "document/vocabulary.h"

std::string tool::className(const VelnorDrawableElement& item) {
    for (const QString& itemClass : velnor::itemClasses()) {
        if (velnor::makeItem(itemClass)->type == item.type) {
            return itemClass.toStdString();
        }
    }
    return {};
}

std::string tool::nameOf(const VelnorDrawableElement& item) {
    return item.id.isEmpty() ? '(' + className(item) + ')' : item.id.toStdString();
}
