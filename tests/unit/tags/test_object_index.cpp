// The index against the searches whose answers it gives, in random trees.
#include "tags/object_index.h"

#include "handler/velnorxml.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <QDomDocument>

#include <random>

using velnor::ObjectIndex;

namespace {

constexpr int Names = 6;

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random(seed) {
        document.appendChild(document.createElement(QStringLiteral("root")));
        if (oneIn(2)) {
            document.documentElement().setAttribute(QStringLiteral("class"), QStringLiteral("c"));
        }
        fill(document.documentElement(), 5);
    }

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }
    bool oneIn(int count) { return below(count) == 0; }
    // Few, so that several elements share one.
    QString name() { return QString(QLatin1Char(static_cast<char>('a' + below(Names)))); }

    QDomDocument document;

private:
    void fill(QDomElement parent, int levels) {
        for (int children = below(levels + 1); children > 0; --children) {
            QDomElement child = document.createElement(name());
            parent.appendChild(child);
            addAttribute(child, QStringLiteral("id"), 2);
            addAttribute(child, QStringLiteral("link"), 2);
            addAttribute(child, QStringLiteral("class"), 3);
            if (oneIn(4)) {
                parent.appendChild(document.createTextNode(QStringLiteral("text")));
            }
            fill(child, levels - 1);
        }
    }

    // Some are there without a value.
    void addAttribute(QDomElement& element, const QString& attribute, int have) {
        if (!oneIn(have)) {
            element.setAttribute(attribute, oneIn(5) ? QString() : name());
        }
    }

    std::mt19937 random;
};

QString nameOf(int number) {
    return number < Names ? QString(QLatin1Char(static_cast<char>('a' + number))) : QString();
}

// For each name, and for none.
void expectTheSearchedElements(const ObjectIndex& index, const QDomElement& object, int number) {
    for (int i = 0; i <= Names; ++i) {
        EXPECT_EQ(index.link(number, nameOf(i)),
                  VelnorXml::matchLinkInRootElement(object, nameOf(i)).toElement());
        if (!nameOf(i).isEmpty()) {
            EXPECT_EQ(index.property(number, nameOf(i)),
                      object.elementsByTagName(nameOf(i)).at(0).toElement());
        }
    }
}

void expectTheSearchedObjects(const ObjectIndex& index, const QDomDocument& document) {
    for (int i = 0; i <= Names; ++i) {
        const QDomElement object =
            VelnorXml::matchIDInRootElement(document.documentElement(), nameOf(i)).toElement();
        const int number = index.object(nameOf(i));
        ASSERT_EQ(number == ObjectIndex::NoObject, object.isNull());
        if (!object.isNull()) {
            expectTheSearchedElements(index, object, number);
        }
    }
}

} // namespace

TEST(ObjectIndex, FindsWhatTheSearchesFind) {
    for (unsigned seed = 0; seed < 1500 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomTree tree(seed);
        const ObjectIndex index(tree.document.documentElement());
        expectTheSearchedObjects(index, tree.document);
    }
}

TEST(ObjectIndex, FindsTheObjectThatTheSearchFinds) {
    for (unsigned seed = 0; seed < 1500 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomTree tree(seed);
        ObjectIndex index(tree.document.documentElement());
        for (int i = 0; i < Names; ++i) {
            const int number = index.object(nameOf(i));
            if (number != ObjectIndex::NoObject) {
                const QDomElement mark = tree.document.createElement(QStringLiteral("mark"));
                index.appendProperty(number, mark);
                EXPECT_EQ(mark.parentNode(), VelnorXml::matchIDInRootElement(
                                                 tree.document.documentElement(), nameOf(i)));
            }
        }
    }
}

TEST(ObjectIndex, FindsPropertiesThatWereAppended) {
    for (unsigned seed = 0; seed < 1500 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomTree tree(seed);
        ObjectIndex index(tree.document.documentElement());
        for (int i = 0; i < 20; ++i) {
            const int object = index.object(tree.name());
            const QString name = tree.name();
            if (object != ObjectIndex::NoObject && index.property(object, name).isNull()) {
                index.appendProperty(object, tree.document.createElement(name));
            }
        }
        expectTheSearchedObjects(index, tree.document);
    }
}

TEST(ObjectIndex, OfANullElementFindsNothing) {
    EXPECT_EQ(ObjectIndex(QDomElement()).object(QStringLiteral("a")), ObjectIndex::NoObject);
}
