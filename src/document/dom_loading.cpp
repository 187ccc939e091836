#include "document/dom_loading.h"

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
                      const QXmlAttributes&) override {
        return stay(++depth <= velnor::MaximumNesting);
    }

    bool endElement(const QString&, const QString&, const QString&) override {
        --depth;
        return true;
    }

    bool internalEntityDecl(const QString&, const QString& value) override {
        return stay(++entityCount <= velnor::MaximumEntities &&
                    referenceCount * value.size() <= velnor::MaximumExpansion);
    }

    bool isBeyond() const { return beyond; }

private:
    bool stay(bool within) {
        beyond = !within;
        return within;
    }

    qint64 referenceCount;
    int depth = 0;
    int entityCount = 0;
    bool beyond = false;
};

int countAmpersands(const QString& text) {
    return text.count(QLatin1Char('&'));
}

int countAmpersands(const QByteArray& bytes) {
    return bytes.count('&');
}

// The tree is built by the same reader with the same features, so nothing that passes here can lie
// beyond a limit there.
template <typename Data>
bool isBeyondLimits(const Data& data) {
    QXmlInputSource source;
    source.setData(data);
    LimitsHandler handler(countAmpersands(data));
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setContentHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.parse(source);
    return handler.isBeyond();
}

template <typename Data>
bool load(QDomDocument& document, const Data& data) {
    return !isBeyondLimits(data) && document.setContent(data);
}

} // namespace

bool velnor::loadXml(QDomDocument& document, const QString& text) {
    return load(document, text);
}

bool velnor::loadXml(QDomDocument& document, const QByteArray& bytes) {
    return load(document, bytes);
}
