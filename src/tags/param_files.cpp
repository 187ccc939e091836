// Parameter files: values for a layout's object links, applied to a handler or listed.
#include "document/dom_loading.h"
#include "files/input_file.h"
#include "handler/velnorxml.h"
#include "library_limits.h"

#include <QDomDocument>

#include <cstring>

namespace {

const QChar RecordSeparator(0x1E);

bool loadParams(const char* file, QDomDocument& document) {
    velnor::InputFile device(QString::fromUtf8(file));
    return device.openUpTo(velnor::MaximumDocumentSize) &&
           velnor::loadXml(document, device.readAll()) &&
           document.documentElement().tagName() == QLatin1String("VelnorParams");
}

// The key and the value of each child node of an entry. A comment has no name, so its key ends with
// the point. False where so many characters are no longer left for them.
bool appendPairs(const QDomElement& entry, QList<DictionaryItem>& pairs, qint64& left) {
    const QString id = entry.attribute(QStringLiteral("id"));
    if (id.isEmpty()) {
        return true;
    }
    for (QDomNode child = entry.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QDomElement element = child.toElement();
        const DictionaryItem pair(id + QLatin1Char('.') + element.tagName(), element.text());
        left -= pair.key.size() + pair.value.size();
        if (left < 0) {
            return false;
        }
        pairs.append(pair);
    }
    return true;
}

// False where the pairs take more room than a document may: each key holds the id of its entry, and
// each value the text of the entries inside it, so that they can be many times as long as the file.
bool readPairs(const QDomNodeList& entries, QList<DictionaryItem>& pairs) {
    qint64 left = velnor::MaximumDocumentSize;
    for (int i = 0; i < entries.size(); ++i) {
        if (!appendPairs(entries.at(i).toElement(), pairs, left)) {
            return false;
        }
    }
    return true;
}

// As strncpy; a size of 0 or less writes nothing. Tells whether the text filled the buffer.
bool copyFilling(char* buffer, int size, const QByteArray& text) {
    if (size <= 0) {
        return false;
    }
    std::strncpy(buffer, text.constData(), static_cast<size_t>(size));
    return text.size() >= size;
}

} // namespace

int VelnorXml::ParseParamsApplyTagGeneric(const char* file, QList<DictionaryItem>* out) {
    QDomDocument document(QStringLiteral("mydocument"));
    if (!loadParams(file, document)) {
        return 1;
    }
    const QDomNodeList entries =
        document.documentElement().elementsByTagName(QStringLiteral("VelnorParam"));
    QList<DictionaryItem> pairs;
    if (entries.isEmpty() || !readPairs(entries, pairs)) {
        return 1;
    }
    if (out != nullptr) {
        out->append(pairs);
    } else {
        setLinkedValues(pairs);
    }
    return 0;
}

int VelnorXml::ParseParamsApplyTag(const char* file) {
    return ParseParamsApplyTagGeneric(file, nullptr);
}

int VelnorXml::ParseParamsGetTagList(const char* file, char* keys, int keysSize, char* values,
                                     int valuesSize) {
    QList<DictionaryItem> pairs;
    const int result = ParseParamsApplyTagGeneric(file, &pairs);
    QStringList keyList;
    QStringList valueList;
    for (const DictionaryItem& pair : pairs) {
        keyList.append(pair.key);
        valueList.append(pair.value);
    }
    if (keys != nullptr && copyFilling(keys, keysSize, keyList.join(RecordSeparator).toUtf8()) &&
        values != nullptr) {
        // The terminating zero of a full key buffer goes into the value buffer: hosts know it so.
        values[keysSize - 1] = '\0';
    }
    if (values != nullptr &&
        copyFilling(values, valuesSize, valueList.join(RecordSeparator).toUtf8())) {
        values[valuesSize - 1] = '\0';
    }
    return result;
}
