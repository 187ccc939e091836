// Placeholders that are replaced in the document's text before it is parsed.
#include "files/input_file.h"
#include "handler/velnorxml.h"
#include "library_limits.h"

#include <QTextStream>

void VelnorXml::SetTagDictionary(const char* key, const char* value) {
    const QLatin1Char percent('%');
    tagDictionary.append(
        DictionaryItem(percent + QString::fromLatin1(key) + percent, QString::fromUtf8(value)));
    workTextValid = false;
}

int VelnorXml::ClearAllDictionary() {
    if (!tagDictionary.isEmpty() || !objectTagDictionary.isEmpty()) {
        workTextValid = false;
    }
    tagDictionary.clear();
    objectTagDictionary.clear();
    return 0;
}

namespace {

// Asked before the replacement takes the memory. The first estimate needs no search.
bool growsBeyondDocument(const QString& line, const DictionaryItem& item) {
    const auto sizeWith = [&](qint64 places) {
        return line.size() + places * (item.value.size() - item.key.size());
    };
    return sizeWith(line.size() / item.key.size()) > velnor::MaximumDocumentSize &&
           sizeWith(line.count(item.key, Qt::CaseSensitive)) > velnor::MaximumDocumentSize;
}

// False where the line would grow beyond what a document may be.
bool replaceTags(QString& line, const QList<DictionaryItem>& tags) {
    // Every key is between percent signs.
    if (!line.contains(QLatin1Char('%'))) {
        return true;
    }
    for (const DictionaryItem& item : tags) {
        if (growsBeyondDocument(line, item)) {
            return false;
        }
        line.replace(item.key, item.value, Qt::CaseSensitive);
    }
    return true;
}

} // namespace

QString VelnorXml::ReadXmlApplyTags() const {
    QString result;
    velnor::InputFile file(documentPath);
    if (!file.openUpTo(velnor::MaximumDocumentSize, QIODevice::ReadOnly | QIODevice::Text)) {
        return result;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    while (!stream.atEnd()) {
        QString line = stream.readLine();
        if (!replaceTags(line, tagDictionary)) {
            return {};
        }
        if (result.size() + line.size() >= velnor::MaximumDocumentSize) {
            return {};
        }
        result += line;
        result += QLatin1Char('\n');
    }
    return result;
}
