#include "check/faults.h"

#include "document/canvas_element.h"

namespace {

using tool::Code;

void addXmlError(const tool::XmlError& error, tool::Findings& findings) {
    findings.addToDocument(
        Code::Xml, error.line,
        QStringLiteral("%1 (column %2)").arg(error.reason, QString::number(error.column)));
}

// A canvas that was read, and is not drawn.
void addCanvasFault(const QDomElement& element, const VelnorDrawableCanvas& canvas,
                    const QString& fault, tool::Findings& findings) {
    const bool hasSize =
        canvas.width > 0 && (canvas.height > 0 || canvas.height == velnor::NotGiven);
    findings.add(hasSize ? Code::Limits : Code::CanvasSize, element, fault);
}

} // namespace

bool tool::addFault(const DocumentView& view, Findings& findings) {
    const auto fault = view.fault();
    if (!fault) {
        return false;
    }
    const QString words = QString::fromStdString(*fault);
    const QDomDocument tree = view.tree();
    const QDomElement itemList = velnor::firstItemList(tree);
    const auto canvas = view.canvas();
    const bool isLayout = !itemList.isNull() && velnor::isCanvas(itemList);
    if (const auto error = view.xmlError()) {
        addXmlError(*error, findings);
    } else if (tree.isNull() || (isLayout && !canvas)) {
        findings.addToDocument(Code::Limits, NoLine, words);
    } else if (itemList.isNull()) {
        findings.addToDocument(Code::NoCanvas, tree.documentElement().lineNumber(), words);
    } else if (!isLayout) {
        findings.add(Code::NoCanvas, itemList, words);
    } else {
        addCanvasFault(itemList, *canvas, words, findings);
    }
    return true;
}
