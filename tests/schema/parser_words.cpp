// Prints, as JSON, the words that the parser knows, each with those of the sample texts that it takes.
// The samples are the strings of a JSON list on standard input.
#include "document/vocabulary.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

class Samples {
public:
    explicit Samples(const QJsonArray& list) : texts(list) {}

    QJsonArray takenBy(velnor::ValueKind kind) const {
        QJsonArray taken;
        for (const QJsonValue& text : texts) {
            if (velnor::isTakenBy(kind, text.toString())) {
                taken.append(text);
            }
        }
        return taken;
    }

    // Each word with what it takes. Those that hold further elements take no text.
    QJsonObject takenBy(const velnor::Words& words) const {
        QJsonObject taken;
        for (const velnor::Word& word : words) {
            const bool isValue = word.value != velnor::ValueKind::GridDefinitions;
            taken.insert(QLatin1String(word.element),
                         isValue ? QJsonValue(takenBy(word.value)) : QJsonValue());
        }
        return taken;
    }

private:
    QJsonArray texts;
};

QJsonObject gridWords(const velnor::GridWords& words) {
    return {{QStringLiteral("list"), QLatin1String(words.list)},
            {QStringLiteral("entry"), QLatin1String(words.entry)},
            {QStringLiteral("size"), QLatin1String(words.size)}};
}

QJsonArray attributes() {
    QJsonArray names;
    for (const char* name : velnor::ReadAttributes) {
        names.append(QLatin1String(name));
    }
    return names;
}

QJsonObject itemWords(const Samples& samples) {
    QJsonObject items;
    for (const QString& itemClass : velnor::itemClasses()) {
        items.insert(itemClass, samples.takenBy(velnor::itemWords(itemClass)));
    }
    return items;
}

} // namespace

int main() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return 1;
    }
    const Samples samples(QJsonDocument::fromJson(input.readAll()).array());
    const QJsonObject words{
        {QStringLiteral("canvas"), samples.takenBy(velnor::canvasWords())},
        {QStringLiteral("items"), itemWords(samples)},
        {QStringLiteral("grids"),
         QJsonArray{gridWords(velnor::RowWords), gridWords(velnor::ColumnWords)}},
        {QStringLiteral("sizes"), samples.takenBy(velnor::ValueKind::GridLength)},
        {QStringLiteral("attributes"), attributes()},
        {QStringLiteral("root"), QLatin1String(velnor::RootElement)},
        {QStringLiteral("list"), QLatin1String(velnor::ItemListElement)},
        {QStringLiteral("item"), QLatin1String(velnor::ItemElement)},
    };
    std::fputs(QJsonDocument(words).toJson().constData(), stdout);
    return 0;
}
