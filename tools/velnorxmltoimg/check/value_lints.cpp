// Values that are not what their elements take, and so fall back or are passed over.
#include "check/lints.h"
#include "check/placeholders.h"
#include "check/word_index.h"

namespace {

using tool::Code;
using velnor::ValueKind;

const char* whatIsTaken(ValueKind kind) {
    switch (kind) {
    case ValueKind::Number:
        return "a whole number";
    case ValueKind::NumberUpTo2:
        return "0, 1 or 2";
    case ValueKind::Margin:
        return "four whole numbers with commas between them";
    case ValueKind::HorizontalAnchor:
        return "left, center or right";
    case ValueKind::VerticalAnchor:
        return "top, center or bottom";
    case ValueKind::EjectOrRetract:
        return "eject or retract";
    case ValueKind::GridLength:
        return "a whole number, Auto, or a weight such as 1*";
    case ValueKind::Text:
    case ValueKind::GridDefinitions:
        break;
    }
    return "any text";
}

class ValueLints {
public:
    explicit ValueLints(tool::Findings& collected) : findings(collected) {}

    void checkOwner(const QDomElement& owner, const QString& ownerName) {
        for (QDomElement child = owner.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const auto kind = index.kindOf(ownerName, child.tagName());
            if (kind) {
                *kind == ValueKind::GridDefinitions ? checkGrid(child) : check(child, *kind);
            }
        }
    }

private:
    void check(const QDomElement& element, ValueKind kind) {
        const QString text = element.text();
        // Without its values a document is not complete; that is told elsewhere.
        if (velnor::isTakenBy(kind, text) || !tool::placeholdersIn(text).empty()) {
            return;
        }
        const QString written = text.trimmed().isEmpty()
                                    ? QStringLiteral("but is empty")
                                    : QStringLiteral("not %1").arg(tool::quoted(text));
        findings.add(Code::MalformedValue, element,
                     QStringLiteral("%1 takes %2, %3")
                         .arg(element.tagName(), QLatin1String(whatIsTaken(kind)), written));
    }

    void checkGrid(const QDomElement& list) {
        const velnor::GridWords& words = list.tagName() == QLatin1String(velnor::RowWords.list)
                                             ? velnor::RowWords
                                             : velnor::ColumnWords;
        const QDomNodeList entries = list.elementsByTagName(QLatin1String(words.entry));
        for (int i = 0; i < entries.size(); ++i) {
            const QDomElement entry = entries.at(i).toElement();
            const QDomElement size =
                entry.elementsByTagName(QLatin1String(words.size)).at(0).toElement();
            if (size.isNull()) {
                findings.add(
                    Code::MissingLength, entry,
                    QStringLiteral("%1 %2 has no %3 and so 0 dots")
                        .arg(entry.tagName(), QString::number(i), QLatin1String(words.size)));
            } else {
                check(size, ValueKind::GridLength);
            }
        }
    }

    tool::Findings& findings;
    const tool::WordIndex index;
};

} // namespace

void tool::lintValues(const CheckedDocument& document, Findings& findings) {
    ValueLints lints(findings);
    lints.checkOwner(document.canvasElement(), QLatin1String(velnor::CanvasClass));
    for (const CheckedItem& item : document.items()) {
        lints.checkOwner(item.element, item.element.attribute(QStringLiteral("class")));
    }
}
