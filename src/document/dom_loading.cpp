#include "document/dom_loading.h"

#include "library_limits.h"
#include "spare_memory.h"

#include <QDomDocument>
#include <QHash>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

// The stream reader that replaces these classes accepts other documents than QDomDocument does.
QT_WARNING_DISABLE_DEPRECATED

namespace {

// The most parentheses that are open at once in the part of a content model that a text holds.
int openParentheses(const QStringRef& text) {
    int open = 0;
    int most = 0;
    for (const QChar character : text) {
        if (character == QLatin1Char('(')) {
            most = qMax(most, ++open);
        } else if (character == QLatin1Char(')')) {
            open = qMax(0, open - 1);
        } else if (character == QLatin1Char('>')) {
            open = 0;
        }
    }
    return most;
}

// The same for the content models that begin behind a mark, each of which ends at the next '>'.
int openParenthesesBehind(const QString& mark, const QString& text) {
    int most = 0;
    int from = text.indexOf(mark);
    while (from >= 0) {
        const int next = text.indexOf(mark, from + mark.size());
        const QStringRef part = text.midRef(from, next < 0 ? -1 : next - from);
        most = qMax(most, openParentheses(part.left(part.indexOf(QLatin1Char('>')))));
        from = next;
    }
    return most;
}

// Stops the reader at the first thing that lies beyond a limit.
class LimitsHandler : public QXmlDefaultHandler {
public:
    explicit LimitsHandler(const QString& document) : text(document) {}

    bool startElement(const QString&, const QString&, const QString&,
                      const QXmlAttributes& attributes) override {
        return stay(++depth <= velnor::MaximumNesting) && addNodes(1 + attributes.count());
    }

    bool endElement(const QString&, const QString&, const QString&) override {
        --depth;
        return true;
    }

    bool processingInstruction(const QString&, const QString&) override { return addNodes(1); }
    bool comment(const QString&) override { return addNodes(1); }
    bool startCDATA() override { return addNodes(1); }
    bool skippedEntity(const QString&) override { return addNodes(1); }
    bool notationDecl(const QString&, const QString&, const QString&) override {
        return addNodes(1);
    }
    bool externalEntityDecl(const QString&, const QString&, const QString&) override {
        return addNodes(1);
    }
    bool unparsedEntityDecl(const QString&, const QString&, const QString&,
                            const QString&) override {
        return addNodes(1);
    }

    bool internalEntityDecl(const QString& name, const QString& value) override {
        const bool isParameter = name.startsWith(QLatin1Char('%'));
        // One name is one entity, whatever its kind.
        values.insert(isParameter ? name.mid(1) : name, value);
        return addNodes(1) && stay(quoting(value) <= velnor::MaximumEntitySearch) &&
               (isParameter ? addModel(value) : addSearch(value));
    }

    // At every reference that is expanded, those inside other entities included.
    bool startEntity(const QString& name) override {
        const QString value = values.value(name);
        expansion += value.size();
        search += quoting(value);
        return stay(expansion <= velnor::MaximumExpansion && search <= velnor::MaximumEntitySearch);
    }

    bool isBeyond() const { return beyond; }

    // What the tree of the document takes, or a little more.
    qint64 treeBytes() const {
        constexpr qint64 BytesPerNode = 512;
        constexpr qint64 BytesPerCharacter = 8;
        return nodeCount * BytesPerNode + text.size() * BytesPerCharacter;
    }

private:
    // What a reference takes that stands in quotes: the reader replaces the quotes of the value, a
    // thousand at a time, by moving the rest.
    static qint64 quoting(const QString& value) {
        const qint64 quotes = value.count(QLatin1Char('"')) + value.count(QLatin1Char('\''));
        return quotes * value.size() / 1000;
    }

    // The reader looks for the name of every entity in the value, and takes each that it finds out
    // by moving the rest.
    bool addSearch(const QString& value) {
        constexpr int CostOfName = 256;
        ++searched;
        search += searched * (value.size() + CostOfName) +
                  qint64(value.count(QLatin1Char('&'))) * value.size();
        return stay(search <= velnor::MaximumEntitySearch);
    }

    // A content model may begin in a parameter entity, without a word of "<!ELEMENT" in the text,
    // go on in others that refer to it, and end in the document behind a reference.
    bool addModel(const QString& value) {
        if (modelDepth == 0) {
            modelDepth = openParenthesesBehind(QStringLiteral(";"), text);
        }
        modelDepth += openParentheses(QStringRef(&value));
        return stay(modelDepth <= velnor::MaximumNesting);
    }

    bool addNodes(int count) {
        nodeCount += count;
        return stay(nodeCount <= velnor::MaximumNodes);
    }

    bool stay(bool within) {
        beyond = !within;
        return within;
    }

    const QString& text;
    QHash<QString, QString> values; // of the entities
    int depth = 0;
    int modelDepth = 0;
    int nodeCount = 0;
    qint64 expansion = 0;
    qint64 search = 0;
    qint64 searched = 0;
    bool beyond = false;
};

// Whether the parentheses of a content model are nested too deeply for the reader, which reads them
// recursively and tells of no declaration before its end.
bool contentModelsAreTooDeep(const QString& text) {
    return openParenthesesBehind(QStringLiteral("<!ELEMENT"), text) > velnor::MaximumNesting;
}

// The tree is built by the same reader with the same features but for the reports of entities, so
// nothing that passes here can lie beyond a limit there. Asks for the tree's memory as well: an
// exception in the middle of it would leave behind what QtXml has made so far.
bool canBeLoaded(const QString& text) {
    if (text.size() > velnor::MaximumDocumentSize || contentModelsAreTooDeep(text)) {
        return false;
    }
    QXmlInputSource source;
    source.setData(text);
    LimitsHandler handler(text);
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setFeature(QStringLiteral("http://qt-project.org/xml/features/report-start-end-entity"),
                      true);
    reader.setContentHandler(&handler);
    reader.setDTDHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.parse(source);
    velnor::requireMemory(handler.treeBytes());
    return !handler.isBeyond();
}

} // namespace

bool velnor::loadXml(QDomDocument& document, const QString& text) {
    return canBeLoaded(text) && document.setContent(text);
}

bool velnor::loadXml(QDomDocument& document, const QByteArray& bytes) {
    QXmlInputSource source;
    source.setData(bytes);
    return loadXml(document, source.data());
}
