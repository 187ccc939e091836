// Placeholders without a value, and values without a placeholder.
#include "check/lints.h"
#include "check/placeholders.h"
#include "text.h"

#include <QFile>
#include <QSet>

#include <algorithm>

namespace {

using tool::Code;
using tool::Setting;

class PlaceholderLints {
public:
    PlaceholderLints(const tool::CheckedDocument& checked, tool::Findings& collected)
        : findings(collected) {
        for (const tool::Placeholder& placeholder : tool::placeholdersIn(checked.view().text())) {
            unset.insert(placeholder.name);
        }
    }

    // The tree and not the text: what stands in a comment is no matter.
    void checkInside(const QDomElement& element) {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.size(); ++i) {
            add(element, attributes.item(i).nodeName(), attributes.item(i).nodeValue(),
                element.lineNumber());
        }
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (child.isElement()) {
                checkInside(child.toElement());
            } else if (child.isText()) {
                add(element, element.tagName(), child.nodeValue(), child.lineNumber());
            }
        }
    }

private:
    // `lastLine` is that of the text's end.
    void add(const QDomElement& element, const QString& where, const QString& text, int lastLine) {
        for (const tool::Placeholder& placeholder : tool::placeholdersIn(text)) {
            // A value of an object may look like a placeholder, and is none.
            if (unset.contains(placeholder.name)) {
                const int line = lastLine - text.mid(placeholder.at).count(QLatin1Char('\n'));
                findings.add(
                    Code::PlaceholderUnset, element, line,
                    QStringLiteral("%%1% in %2 has no value").arg(placeholder.name, where));
            }
        }
    }

    tool::Findings& findings;
    QSet<QString> unset;
};

QString placeholderOf(const Setting& setting) {
    return QLatin1Char('%') + QString::fromStdString(tool::fromLatin1(setting.name)) +
           QLatin1Char('%');
}

// A value may hold the placeholder of another one.
void lintUnused(const tool::Layout& layout, tool::Findings& findings) {
    QFile file(QString::fromStdString(layout.source().path));
    QString text;
    if (file.open(QIODevice::ReadOnly)) {
        text = QString::fromUtf8(file.readAll());
    }
    for (const Setting& setting : layout.source().settings) {
        if (setting.kind == Setting::Kind::Tag) {
            text += QLatin1Char('\n') + QString::fromStdString(setting.value);
        }
    }
    QSet<QString> told;
    for (const Setting& setting : layout.source().settings) {
        const QString placeholder = placeholderOf(setting);
        if (setting.kind == Setting::Kind::Tag && !text.contains(placeholder) &&
            !told.contains(placeholder)) {
            told.insert(placeholder);
            findings.addToDocument(
                Code::TagUnused, tool::NoLine,
                QStringLiteral("there is no %1, which got a value").arg(placeholder));
        }
    }
}

} // namespace

void tool::lintPlaceholders(const CheckedDocument& document, Findings& findings) {
    PlaceholderLints(document, findings).checkInside(document.tree().documentElement());
    lintUnused(document.layout(), findings);
}
