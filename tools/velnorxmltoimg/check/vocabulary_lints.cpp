// Elements, attributes and classes that the library passes over without a word.
#include "check/lints.h"
#include "check/word_index.h"

#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

using tool::Code;
using velnor::GridWords;

bool isRead(const QString& attribute) {
    return std::any_of(std::begin(velnor::ReadAttributes), std::end(velnor::ReadAttributes),
                       [&](const char* read) { return attribute == QLatin1String(read); });
}

// What XML and its schemas need themselves.
bool belongsToXml(const QString& attribute) {
    return attribute == QLatin1String("xmlns") || attribute.startsWith(QLatin1String("xmlns:")) ||
           attribute.startsWith(QLatin1String("xsi:")) ||
           attribute.startsWith(QLatin1String("xml:"));
}

bool contains(const QDomElement& outer, QDomNode inner) {
    while (!inner.isNull() && inner != outer) {
        inner = inner.parentNode();
    }
    return !inner.isNull();
}

QString orNearest(const QString& written, const QStringList& known) {
    const QString nearest = tool::nearestWord(written, known);
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(nearest);
}

class WordLints {
public:
    WordLints(const tool::CheckedDocument& checked, tool::Findings& collected)
        : document(checked), findings(collected) {}

    void run() {
        const QDomElement& canvas = document.canvasElement();
        checkAround(document.tree().documentElement());
        checkCanvas(canvas);
        const QDomNodeList items = canvas.elementsByTagName(QLatin1String(velnor::ItemElement));
        for (int i = 0; i < items.size(); ++i) {
            checkItem(items.at(i).toElement());
        }
    }

private:
    template <typename Visitor>
    static void visitChildren(const QDomElement& parent, Visitor visit) {
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            visit(child);
        }
    }

    void addUnknown(const QDomElement& element, const QString& text) {
        findings.add(Code::UnknownElement, element, text);
    }

    void checkAttributes(const QDomElement& element) {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.size(); ++i) {
            const QString name = attributes.item(i).nodeName();
            if (!isRead(name) && !belongsToXml(name)) {
                QStringList known;
                for (const char* read : velnor::ReadAttributes) {
                    known.append(QLatin1String(read));
                }
                findings.add(Code::UnknownAttribute, element,
                             QStringLiteral("the attribute %1 of %2 is not read%3")
                                 .arg(name, element.tagName(), orNearest(name, known)));
            }
        }
    }

    // What lies around the canvas: the root, and elements between the two.
    void checkAround(const QDomElement& outer) {
        checkAttributes(outer);
        visitChildren(outer, [this](const QDomElement& child) {
            const bool isList = child.tagName() == QLatin1String(velnor::ItemListElement);
            if (child == document.canvasElement()) {
                return;
            }
            if (contains(child, document.canvasElement())) {
                checkAround(child);
            } else if (isList) {
                addUnknown(child, QStringLiteral("only the first VelnorItems is read"));
            } else {
                addUnknown(
                    child,
                    QStringLiteral("%1 is not read outside the canvas").arg(child.tagName()));
            }
        });
    }

    void checkCanvas(const QDomElement& canvas) {
        checkAttributes(canvas);
        checkWords(canvas, QLatin1String(velnor::CanvasClass));
    }

    void checkItem(const QDomElement& item) {
        const QString itemClass = item.attribute(QStringLiteral("class"));
        checkAttributes(item);
        if (index.knowsOwner(itemClass) && itemClass != QLatin1String(velnor::CanvasClass)) {
            checkWords(item, itemClass);
            return;
        }
        const QStringList classes = velnor::itemClasses();
        const QString is =
            itemClass.isEmpty()
                ? QStringLiteral("an item without a class")
                : QStringLiteral("there is no class %1").arg(tool::quoted(itemClass));
        findings.add(
            Code::UnknownClass, item,
            QStringLiteral("%1: the item is not drawn%2").arg(is, orNearest(itemClass, classes)));
    }

    void checkWords(const QDomElement& owner, const QString& ownerName) {
        QSet<QString> seen;
        visitChildren(owner, [&](const QDomElement& child) {
            const QString word = child.tagName();
            if (word == QLatin1String(velnor::ItemElement)) {
                return;
            }
            checkAttributes(child);
            const auto kind = index.kindOf(ownerName, word);
            if (!kind) {
                addUnknown(child, unknownWord(word, ownerName));
                return;
            }
            *kind == velnor::ValueKind::GridDefinitions ? checkGrid(child) : checkInside(child);
            if (seen.contains(word)) {
                findings.add(Code::RepeatedElement, child,
                             QStringLiteral("%1 stands twice; the later one counts").arg(word));
            }
            seen.insert(word);
        });
    }

    QString unknownWord(const QString& word, const QString& ownerName) {
        const QString no =
            QStringLiteral("%1 is no element of %2").arg(word, nameOfOwner(ownerName));
        QStringList known = index.wordsOf(ownerName);
        if (ownerName == QLatin1String(velnor::CanvasClass)) {
            known.append(QLatin1String(velnor::ItemElement));
        }
        const QStringList owners = index.ownersOf(word);
        if (owners.isEmpty() || known.contains(word, Qt::CaseInsensitive)) {
            return no + orNearest(word, known);
        }
        return no + QStringLiteral(", but of ") + owners.join(QStringLiteral(", "));
    }

    static QString nameOfOwner(const QString& ownerName) {
        return ownerName == QLatin1String(velnor::CanvasClass) ? QStringLiteral("the canvas")
                                                               : ownerName;
    }

    void checkGrid(const QDomElement& list) {
        const GridWords& words = list.tagName() == QLatin1String(velnor::RowWords.list)
                                     ? velnor::RowWords
                                     : velnor::ColumnWords;
        visitOnly(list, words.entry, [&](const QDomElement& entry) {
            visitOnly(entry, words.size, [this](const QDomElement& size) { checkInside(size); });
        });
    }

    // Calls `visit` with the children of the one name that is known here.
    template <typename Visitor>
    void visitOnly(const QDomElement& parent, const char* known, Visitor visit) {
        visitChildren(parent, [&](const QDomElement& child) {
            checkAttributes(child);
            if (child.tagName() == QLatin1String(known)) {
                visit(child);
            } else {
                addUnknown(child, QStringLiteral("%1 is no element of %2%3")
                                      .arg(child.tagName(), parent.tagName(),
                                           orNearest(child.tagName(), {QLatin1String(known)})));
            }
        });
    }

    // A value is text alone.
    void checkInside(const QDomElement& value) {
        visitChildren(value, [&](const QDomElement& child) {
            if (child.tagName() != QLatin1String(velnor::ItemElement)) {
                addUnknown(child, QStringLiteral("%1 is no element of %2; its text alone counts")
                                      .arg(child.tagName(), value.tagName()));
            }
        });
    }

    const tool::CheckedDocument& document;
    tool::Findings& findings;
    const tool::WordIndex index;
};

} // namespace

void tool::lintVocabulary(const CheckedDocument& document, Findings& findings) {
    WordLints(document, findings).run();
}
