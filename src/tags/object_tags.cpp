// Object tags and object links: setting and reading element texts by object name and property.
#include "handler/velnorxml.h"
#include "tags/linked_document.h"
#include "tags/object_index.h"
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
void applyObjectTag(QDomDocument& doc, velnor::ObjectIndex& index, const DictionaryItem& item) {
    const QStringList parts = velnor::splitObjectKey(item.key);
    const int object = parts.size() == 2 ? index.object(parts[0]) : velnor::ObjectIndex::NoObject;
    if (object == velnor::ObjectIndex::NoObject) {
        return;
    }
    QDomElement property = index.property(object, parts[1]);
    if (property.isNull()) {
        property = doc.createElement(parts[1]);
        index.appendProperty(object, property);
    }
    setPropertyText(doc, property, item.value);
}

// The key as an object tag; the key itself where it names no link.
QString resolvedLink(const velnor::ObjectIndex& index, const QString& key) {
    const QStringList parts = velnor::splitObjectKey(key);
    const int object = index.object(parts[0]);
    if (object == velnor::ObjectIndex::NoObject) {
        return key;
    }
    const QDomElement target = index.link(object, parts[1]);
    QString text;
    return target.isNull() || !velnor::readPlainText(target, text)
               ? key
               : parts[0] + QLatin1Char('.') + target.tagName();
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
    if (!objectTagDictionary.isEmpty()) {
        velnor::ObjectIndex index(doc.documentElement());
        for (const DictionaryItem& item : objectTagDictionary) {
            applyObjectTag(doc, index, item);
        }
    }
    return 0;
}

void VelnorXml::loadLinkedDocument(velnor::LinkedDocument& document) {
    const velnor::FileVersion version(documentPath);
    if (document.version && *document.version == version) {
        return;
    }
    const bool reload = !workTextValid;
    document.version.reset();
    document.index.reset();
    if (loadWorkDocument(document.tree, reload)) {
        document.index = std::make_unique<velnor::ObjectIndex>(document.tree.documentElement());
    }
    if (reload) {
        document.version = version;
    }
}

void VelnorXml::setLinkedValue(velnor::LinkedDocument& document, const DictionaryItem& pair) {
    // As they come through the interface: names byte by byte.
    DictionaryItem item(QString::fromLatin1(pair.key.toUtf8()),
                        QString::fromUtf8(pair.value.toUtf8()));
    if (velnor::splitObjectKey(item.key).size() != 2) {
        return;
    }
    if (velnor::namesValue(item.key)) {
        loadLinkedDocument(document);
    }
    if (document.index) {
        item.key = resolvedLink(*document.index, item.key);
        applyObjectTag(document.tree, *document.index, item);
    }
    objectTagDictionary.append(item);
    workTextValid = false;
}

void VelnorXml::setLinkedValues(const QList<DictionaryItem>& pairs) {
    velnor::LinkedDocument document;
    for (const DictionaryItem& pair : pairs) {
        setLinkedValue(document, pair);
    }
}
