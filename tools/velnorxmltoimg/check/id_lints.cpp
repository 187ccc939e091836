// Ids: by them messages, values and printer settings are told apart.
#include "check/lints.h"
#include "document/vocabulary.h"

#include <QHash>

namespace {

bool hasPrinterSettings(const QDomElement& canvas) {
    for (const velnor::Word& word :
         {velnor::PresentationWord, velnor::EjectRetractWord, velnor::EjectRetractTimeoutWord}) {
        if (!canvas.firstChildElement(QLatin1String(word.element)).isNull()) {
            return true;
        }
    }
    return false;
}

} // namespace

void tool::lintIds(const CheckedDocument& document, Findings& findings) {
    const QString id = QStringLiteral("id");
    const QDomElement& canvas = document.canvasElement();
    if (canvas.attribute(id).isEmpty() && hasPrinterSettings(canvas)) {
        findings.add(
            Code::MissingId, canvas,
            QStringLiteral("printer settings are read by the id of the canvas, which has none"));
    }
    QHash<QString, int> lines{{canvas.attribute(id), canvas.lineNumber()}};
    for (const CheckedItem& item : document.items()) {
        const QString itemId = item.element.attribute(id);
        if (itemId.isEmpty()) {
            continue;
        }
        const auto first = lines.constFind(itemId);
        if (first == lines.constEnd()) {
            lines.insert(itemId, item.element.lineNumber());
        } else {
            findings.add(Code::RepeatedId, item.element,
                         QStringLiteral("the same id stands in line %1").arg(*first));
        }
    }
}
