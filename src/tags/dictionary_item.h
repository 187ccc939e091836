// One key and its value, as the dictionaries of a handler hold them.
#ifndef VELNOR_TAGS_DICTIONARY_ITEM_H
#define VELNOR_TAGS_DICTIONARY_ITEM_H

#include <QString>

#include <utility>

class DictionaryItem {
public:
    DictionaryItem(QString itemKey, QString itemValue)
        : key(std::move(itemKey)), value(std::move(itemValue)) {}

    // "%name%" in the tag dictionary, "object.property" in the object tag dictionary.
    QString key;
    QString value;
};

#endif
