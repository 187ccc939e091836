// Finding an object, and a property of it, in the tree of the current document.
#include "document/dom_loading.h"
#include "handler/velnorxml.h"
#include "tags/object_index.h"
#include "tags/object_key.h"

#include <QDomDocument>

QDomNode VelnorXml::matchAttrInRootElement(const QDomElement& parent, const QString& attribute,
                                           const QString& value) {
    if (value.isEmpty() || parent.isNull()) {
        return {};
    }
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.attribute(attribute) == value) {
            return child;
        }
    }
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (!child.attribute(QStringLiteral("class")).isEmpty()) {
            const QDomNode match = matchAttrInRootElement(child, attribute, value);
            if (!match.isNull()) {
                return match;
            }
        }
    }
    return {};
}

QDomNode VelnorXml::matchIDInRootElement(const QDomElement& parent, const QString& value) {
    return matchAttrInRootElement(parent, QStringLiteral("id"), value);
}

QDomNode VelnorXml::matchLinkInRootElement(const QDomElement& parent, const QString& value) {
    return matchAttrInRootElement(parent, QStringLiteral("link"), value);
}

bool VelnorXml::loadWorkDocument(QDomDocument& document, bool reload) {
    const bool reloading = reload || workText.isEmpty();
    if (reloading) {
        workText = ReadXmlApplyTags();
    }
    if (!velnor::loadXml(document, workText)) {
        return false;
    }
    applyObjectTagsToXmlDoc(document);
    workTextValid = workTextValid || reloading;
    return true;
}

int VelnorXml::findValue(const QDomDocument& document, const QString& key, QString& value,
                         QString& resolvedKey, bool link) {
    const QStringList parts = velnor::splitObjectKey(key);
    const QDomElement object =
        matchIDInRootElement(document.documentElement(), parts[0]).toElement();
    if (object.isNull()) {
        return 1;
    }
    resolvedKey = QLatin1String("");
    const QDomNode target =
        link ? matchLinkInRootElement(object, parts[1]) : object.elementsByTagName(parts[1]).at(0);
    if (target.isNull() || !velnor::readPlainText(target, value)) {
        return 1;
    }
    if (link) {
        resolvedKey = parts[0] + QLatin1Char('.') + target.toElement().tagName();
    }
    return 0;
}

int VelnorXml::GetValueFromObject(const QString& key, QString& value, QString& resolvedKey,
                                  bool link, bool reload) {
    QDomDocument document(QStringLiteral("tmpdocument"));
    if (!velnor::namesValue(key) || !loadWorkDocument(document, reload)) {
        return 1;
    }
    return findValue(document, key, value, resolvedKey, link);
}
