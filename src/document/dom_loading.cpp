#include "document/dom_loading.h"

#include "library_limits.h"

#include <QDomDocument>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

// The stream reader that replaces these classes accepts other documents than QDomDocument does.
QT_WARNING_DISABLE_DEPRECATED

namespace {

// Stops the reader at the first thing that lies beyond a limit.
class LimitsHandler : public QXmlDefaultHandler {
public:
    // `references`: how often the document may refer to an entity, at most.
    explicit LimitsHandler(qint64 references) : referenceCount(references) {}

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

    bool internalEntityDecl(const QString& name, const QString& value) override {
        // A parameter entity could hide any depth of a content model.
        return stay(!name.startsWith(QLatin1Char('%'))) && addEntity() &&
               stay(referenceCount * value.size() <= velnor::MaximumExpansion);
    }
    bool externalEntityDecl(const QString&, const QString&, const QString&) override {
        return addEntity();
    }
    bool unparsedEntityDecl(const QString&, const QString&, const QString&,
                            const QString&) override {
        return addEntity();
    }

    bool isBeyond() const { return beyond; }

private:
    bool addEntity() { return stay(++entityCount <= velnor::MaximumEntities); }

    bool addNodes(int count) {
        nodeCount += count;
        return stay(nodeCount <= velnor::MaximumNodes);
    }

    bool stay(bool within) {
        beyond = !within;
        return within;
    }

    qint64 referenceCount;
    int depth = 0;
    int nodeCount = 0;
    int entityCount = 0;
    bool beyond = false;
};

// Whether the parentheses of a content model are nested too deeply for the reader, which reads them
// recursively and tells of no declaration before its end.
bool contentModelsAreTooDeep(const QString& text) {
    const QString declaration = QStringLiteral("<!ELEMENT");
    int from = text.indexOf(declaration);
    while (from >= 0) {
        int depth = 0;
        const int next = text.indexOf(declaration, from + declaration.size());
        const int end = next < 0 ? text.size() : next;
        for (int i = from; i < end && text[i] != QLatin1Char('>'); ++i) {
            depth += text[i] == QLatin1Char('(') ? 1 : 0;
            depth -= text[i] == QLatin1Char(')') ? 1 : 0;
            if (depth > velnor::MaximumNesting) {
                return true;
            }
        }
        from = next;
    }
    return false;
}

// The tree is built by the same reader with the same features, so nothing that passes here can lie
// beyond a limit there.
bool isBeyondLimits(const QString& text) {
    if (text.size() > velnor::MaximumDocumentSize || contentModelsAreTooDeep(text)) {
        return true;
    }
    QXmlInputSource source;
    source.setData(text);
    LimitsHandler handler(text.count(QLatin1Char('&')));
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setContentHandler(&handler);
    reader.setDTDHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.parse(source);
    return handler.isBeyond();
}

} // namespace

bool velnor::loadXml(QDomDocument& document, const QString& text) {
    return !isBeyondLimits(text) && document.setContent(text);
}

bool velnor::loadXml(QDomDocument& document, const QByteArray& bytes) {
    QXmlInputSource source;
    source.setData(bytes);
    return loadXml(document, source.data());
}
