// Many links set at once, against the same links set one by one.
#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"
#include "tags/linked_document.h"

#include <cstdio>

namespace {

using Pairs = QList<DictionaryItem>;

QString textOf(const Pairs& pairs) {
    QString text;
    for (const DictionaryItem& pair : pairs) {
        text += pair.key + QLatin1Char('=') + pair.value + QLatin1Char(' ');
    }
    return text;
}

DictionaryItem pair(const char* key) {
    return DictionaryItem(QString::fromUtf8(key), QStringLiteral("v"));
}

void setOneByOne(VelnorXml& handler, const DictionaryItem& item) {
    handler.SetObjectTagDictionary(item.key.toUtf8().constData(), item.value.toUtf8().constData(),
                                   true, true);
}

QByteArray boxWith(const QByteArray& linked) {
    return canvasDocument(
        itemElement("text", '<' + linked + " link='l'>1</" + linked + '>', "box"));
}

struct PairsRow : Row {
    QByteArray document;
    std::vector<const char*> keys;
};

class LinkedValues : public testing::TestWithParam<PairsRow> {};

const PairsRow Rows[] = {
    {"LinksAndProperties", boxWith("a"), {"box.l", "box.a", "box.b", "box.l"}},
    {"UnknownObjects", boxWith("a"), {"bag.l", "box.l"}},
    {"KeysWithoutAName", boxWith("a"), {"box.", ".l", ".", "box.l"}},
    {"KeysOfOtherParts", boxWith("a"), {"box.l.x", "box.l"}},
    {"NamesOutsideAscii", boxWith("\xC3\xA4"), {"box.l", "b\xC3\xB6x.l"}},
    {"ALinkToAnElementOfElements",
     canvasDocument(itemElement("text", "<a link='l'><b link='k'>1</b></a>", "box")),
     {"box.l", "box.k"}},
    {"ALinkThatAValueFills",
     canvasDocument(itemElement("text", "<a link='l'/><b link='k'/>", "box")),
     {"box.l", "box.k", "box.l"}},
    {"ADocumentThatDoesNotLoad", "<broken", {"box.l", "box.l"}},
    {"NoPair", boxWith("a"), {}},
};

} // namespace

TEST_P(LinkedValues, AreStoredAsOneByOne) {
    Layout atOnce(GetParam().document);
    Layout single(GetParam().document);
    Pairs pairs;
    for (const char* key : GetParam().keys) {
        pairs.append(pair(key));
        setOneByOne(single.handler(), pairs.last());
    }
    atOnce.handler().setLinkedValues(pairs);
    EXPECT_EQ(textOf(atOnce.handler().objectTags()), textOf(single.handler().objectTags()));
    EXPECT_EQ(atOnce.handler().isWorkTextValid(), single.handler().isWorkTextValid());
}

INSTANTIATE_TEST_SUITE_P(ObjectLinks, LinkedValues, testing::ValuesIn(Rows), RuleAsName());

namespace {

using Change = void (*)(const Layout& layout);

struct ChangeRow : Row {
    Change change;
    const char* keys;
};

class ChangedDocument : public testing::TestWithParam<ChangeRow> {};

void replaceByRenaming(const Layout& layout) {
    const QString other = layout.folder().write(QStringLiteral("other.xml"), boxWith("b"));
    ASSERT_EQ(std::rename(other.toUtf8().constData(),
                          layout.folder().path(QStringLiteral("layout.xml")).toUtf8().constData()),
              0);
}

const ChangeRow Changes[] = {
    {"Nothing", [](const Layout&) {}, "box.a=v box.a=v box.a=v "},
    {"IsRewritten", [](const Layout& layout) { layout.rewrite(boxWith("other")); },
     "box.a=v box.other=v box.other=v "},
    {"IsReplaced", replaceByRenaming, "box.a=v box.b=v box.b=v "},
    {"IsRemoved", [](const Layout& layout) { layout.remove(); }, "box.a=v box.l=v box.l=v "},
    {"IsBroken", [](const Layout& layout) { layout.rewrite("<broken"); },
     "box.a=v box.l=v box.l=v "},
};

QString keysWithChange(Change change, bool readBefore, bool atOnce) {
    Layout layout(boxWith("a"));
    velnor::LinkedDocument document;
    if (readBefore) {
        layout.handler().GetObjectTagDictionary("box.a", nullptr, 0, false);
    }
    for (int i = 0; i < 3; ++i) {
        if (i == 1) {
            change(layout);
        }
        if (atOnce) {
            layout.handler().setLinkedValue(document, pair("box.l"));
        } else {
            setOneByOne(layout.handler(), pair("box.l"));
        }
    }
    return textOf(layout.handler().objectTags());
}

} // namespace

TEST_P(ChangedDocument, IsReadBeforeTheNextValue) {
    for (const bool readBefore : {false, true}) {
        for (const bool atOnce : {false, true}) {
            EXPECT_EQ(keysWithChange(GetParam().change, readBefore, atOnce),
                      QString::fromLatin1(GetParam().keys));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ObjectLinks, ChangedDocument, testing::ValuesIn(Changes), RuleAsName());

TEST(ObjectLinks, BeginWithTheTextThatAReadHasKept) {
    for (const bool atOnce : {false, true}) {
        Layout layout(boxWith("a"));
        layout.handler().GetObjectTagDictionary("box.a", nullptr, 0, false);
        layout.rewrite(boxWith("other"));
        if (atOnce) {
            layout.handler().setLinkedValues({pair("box.l"), pair("box.l")});
        } else {
            setOneByOne(layout.handler(), pair("box.l"));
            setOneByOne(layout.handler(), pair("box.l"));
        }
        EXPECT_EQ(textOf(layout.handler().objectTags()), QStringLiteral("box.a=v box.other=v "));
    }
}
