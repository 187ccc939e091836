// Object tags and object links: setting and reading element texts by object name and property.
#include "handler/velnorxml.h"
#include "tags/object_key.h"

#include <QDomDocument>

#include <cstring>

namespace {

// Overwrites a property that holds plain text or nothing; other content is left as it is. There is
// no property where its name is empty.
void setPropertyText(QDomDocument& doc, QDomNode property, const QString& value) {
    if (property.isNull()) {
        return;
    }
    QDomNode child = property.firstChild();
    if (child.isNull()) {
        property.appendChild(doc.createTextNode(value));
    } else if (child.nextSibling().isNull() && child.isText()) {
        child.setNodeValue(value);
    }
}

// Sets the property in the tree, made where the object has none of that name.
void applyObjectTag(QDomDocument& doc, const DictionaryItem& item) {
    const QStringList parts = velnor::splitObjectKey(item.key);
    if (parts.size() != 2) {
        return;
    }
    QDomElement object =
        VelnorXml::matchIDInRootElement(doc.documentElement(), parts[0]).toElement();
    if (object.isNull()) {
        return;
    }
    QDomNode property = object.elementsByTagName(parts[1]).at(0);
    if (property.isNull()) {
        property = object.appendChild(doc.createElement(parts[1]));
    }
    setPropertyText(doc, property, item.value);
}

void copyToBuffer(const QString& value, char* buffer, int size) {
    if (size <= 0) {
        return;
    }
    const QByteArray bytes = value.toUtf8();
    const auto capacity = static_cast<size_t>(size);
    std::strncpy(buffer, bytes.constData(), capacity);
    if (bytes.size() >= size) {
        buffer[capacity - 1] = '\0';
    }
}

} // namespace

int VelnorXml::SetObjectTagDictionary(const char* key, const char* value, bool link,
                                      bool keepUnresolved) {
    const QString name = QString::fromLatin1(key);
    const int parts = velnor::splitObjectKey(name).size();
    if (parts == 1) {
        SetTagDictionary(key, value);
        return 0;
    }
    if (parts != 2) {
        return 1;
    }
    QString target = name;
    int result = 0;
    if (link) {
        QString resolved;
        result = GetObjectTagDictionaryGeneric(key, nullptr, 0, true, resolved);
        target = result == 0 ? resolved : name;
    }
    if (result == 0 || keepUnresolved) {
        objectTagDictionary.append(DictionaryItem(target, QString::fromUtf8(value)));
    }
    workTextValid = false;
    return result;
}

int VelnorXml::GetObjectTagDictionary(const char* key, char* buffer, int size, bool link) {
    QString resolvedKey;
    return GetObjectTagDictionaryGeneric(key, buffer, size, link, resolvedKey);
}

int VelnorXml::GetObjectTagDictionaryGeneric(const char* key, char* buffer, int size, bool link,
                                             QString& resolvedKey) {
    const QString name = QString::fromLatin1(key);
    if (velnor::splitObjectKey(name).size() != 2) {
        return 1;
    }
    QString value;
    QString resolved;
    const int result = GetValueFromObject(name, value, resolved, link, !workTextValid);
    if (result == 0 && buffer != nullptr) {
        copyToBuffer(value, buffer, size);
    }
    resolvedKey = resolved;
    return result;
}

int VelnorXml::applyObjectTagsToXmlDoc(QDomDocument& doc) const {
    if (doc.isNull()) {
        return 1;
    }
    for (const DictionaryItem& item : objectTagDictionary) {
        applyObjectTag(doc, item);
    }
    return 0;
}

void VelnorXml::setLinkedValues(const QList<DictionaryItem>& pairs) {
    QList<DictionaryItem> values;
    for (const DictionaryItem& pair : pairs) {
        // As they come through the interface: names byte by byte.
        const QString name = QString::fromLatin1(pair.key.toUtf8());
        if (velnor::splitObjectKey(name).size() == 2) {
            values.append(DictionaryItem(name, QString::fromUtf8(pair.value.toUtf8())));
        }
    }
    if (values.isEmpty()) {
        return;
    }
    QDomDocument document(QStringLiteral("tmpdocument"));
    const bool loaded = loadWorkDocument(document, !workTextValid);
    for (DictionaryItem& item : values) {
        QString value;
        QString resolved;
        if (loaded && velnor::namesValue(item.key) &&
            findValue(document, item.key, value, resolved, true) == 0) {
            item.key = resolved;
        }
        objectTagDictionary.append(item);
        if (loaded) {
            applyObjectTag(document, item);
        }
    }
    workTextValid = false;
}
