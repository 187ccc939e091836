#include "check/finding.h"

#include "document/vocabulary.h"

#include <algorithm>

namespace {

struct Owner {
    std::string kind;
    std::string id;
};

Owner ownerOf(QDomElement element) {
    while (!element.isNull()) {
        const QString name = element.tagName();
        const bool isItem = name == QLatin1String(velnor::ItemElement);
        if (isItem || name == QLatin1String(velnor::ItemListElement)) {
            const QString itemClass = element.attribute(QStringLiteral("class"));
            return {itemClass.isEmpty() ? "item" : itemClass.toStdString(),
                    element.attribute(QStringLiteral("id")).toStdString()};
        }
        element = element.parentNode().toElement();
    }
    return {"document", {}};
}

// An element that a value made has no line of its own.
int lineOf(QDomElement element) {
    while (!element.isNull() && element.lineNumber() < 1) {
        element = element.parentNode().toElement();
    }
    return element.isNull() ? tool::NoLine : element.lineNumber();
}

} // namespace

void tool::Findings::add(Code code, const QDomElement& about, const QString& text) {
    add(code, about, NoLine, text);
}

void tool::Findings::add(Code code, const QDomElement& about, int line, const QString& text) {
    const Owner owner = ownerOf(about);
    findings.push_back(
        {code, line > NoLine ? line : lineOf(about), owner.kind, owner.id, text.toStdString()});
}

void tool::Findings::addToDocument(Code code, int line, const QString& text) {
    findings.push_back({code, line, "document", {}, text.toStdString()});
}

std::vector<tool::Finding> tool::Findings::inOrder() const {
    std::vector<Finding> ordered = findings;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return ordered;
}

QString tool::quoted(const QString& value) {
    constexpr int Longest = 60;
    const QString shown =
        value.size() <= Longest ? value : value.left(Longest) + QStringLiteral("\u2026");
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString tool::counted(int count, const char* thing) {
    return QString::number(count) + QLatin1Char(' ') + QLatin1String(thing) +
           QLatin1String(count == 1 ? "" : "s");
}
