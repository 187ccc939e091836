#include "support/layouts.h"

#include <QFile>

namespace {

QString documentName() {
    return QStringLiteral("layout.xml");
}

} // namespace

QByteArray element(const QByteArray& name, const QByteArray& content) {
    return '<' + name + '>' + content + "</" + name + '>';
}

QByteArray itemElement(const QByteArray& kind, const QByteArray& fields, const QByteArray& id) {
    return "<VelnorItem class=\"" + kind + "\" id=\"" + id + "\">" + fields + "</VelnorItem>";
}

QByteArray canvasDocument(const QByteArray& children) {
    return "<VelnorRoot><VelnorItems class=\"canvas\" id=\"page\">" + children +
           "</VelnorItems></VelnorRoot>";
}

QByteArray nested(const QByteArray& name, int depth, const QByteArray& content) {
    return ('<' + name + '>').repeated(depth) + content + ("</" + name + '>').repeated(depth);
}

Layout::Layout(const QByteArray& document) {
    const QByteArray path = scratch.write(documentName(), document).toUtf8();
    xml = std::make_unique<VelnorXml>(path.constData(), nullptr, nullptr);
}

void Layout::rewrite(const QByteArray& document) const {
    scratch.write(documentName(), document);
}

void Layout::remove() const {
    if (!QFile::remove(scratch.path(documentName()))) {
        throw std::runtime_error("cannot remove the document");
    }
}

int Layout::parseResult() {
    VelnorDrawableCanvas* canvas = nullptr;
    const int result = xml->Parse(&canvas);
    const std::unique_ptr<VelnorDrawableCanvas> owner(canvas);
    return result;
}

std::unique_ptr<VelnorDrawableCanvas> Layout::parse() {
    VelnorDrawableCanvas* canvas = nullptr;
    xml->Parse(&canvas);
    return std::unique_ptr<VelnorDrawableCanvas>(canvas);
}

std::unique_ptr<VelnorDrawableCanvas> parsedCanvas(const QByteArray& children) {
    auto canvas = Layout(canvasDocument(children)).parse();
    if (!canvas) {
        throw std::runtime_error("the document was not parsed");
    }
    return canvas;
}
