#include "document/dom_loading.h"

#include <QDomDocument>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

// The stream reader that replaces these classes accepts other documents than QDomDocument does.
QT_WARNING_DISABLE_DEPRECATED

namespace {

// Stops the reader at the first element that lies too deep.
class NestingHandler : public QXmlDefaultHandler {
public:
    bool startElement(const QString&, const QString&, const QString&,
                      const QXmlAttributes&) override {
        tooDeep = ++depth > velnor::MaximumNesting;
        return !tooDeep;
    }

    bool endElement(const QString&, const QString&, const QString&) override {
        --depth;
        return true;
    }

    bool tooDeep = false;

private:
    int depth = 0;
};

// The tree is built by the same reader, so nothing that passes here can lie deeper there.
template <typename Data>
bool isNestedTooDeeply(const Data& data) {
    QXmlInputSource source;
    source.setData(data);
    NestingHandler handler;
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.parse(source);
    return handler.tooDeep;
}

template <typename Data>
bool load(QDomDocument& document, const Data& data) {
    return !isNestedTooDeeply(data) && document.setContent(data);
}

} // namespace

bool velnor::loadXml(QDomDocument& document, const QString& text) {
    return load(document, text);
}

bool velnor::loadXml(QDomDocument& document, const QByteArray& bytes) {
    return load(document, bytes);
}
