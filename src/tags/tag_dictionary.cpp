// Placeholders that are replaced in the document's text before it is parsed.
#include "handler/velnorxml.h"

#include <QFile>
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

QString VelnorXml::ReadXmlApplyTags() const {
    QString result;
    QFile file(documentPath);
    if (documentPath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return result;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    while (!stream.atEnd()) {
        QString line = stream.readLine();
        for (const DictionaryItem& item : tagDictionary) {
            line.replace(item.key, item.value, Qt::CaseSensitive);
        }
        result += line;
        result += QLatin1Char('\n');
    }
    return result;
}
