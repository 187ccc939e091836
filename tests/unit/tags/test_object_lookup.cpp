#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <QDomDocument>

namespace {

struct SearchRow : Row {
    QByteArray root;
    const char* value;
    const char* match; // the "n" attribute of the element that is found, or ""
};

struct ReadRow : Row {
    const char* key;
    QByteArray property; // what the object "box" holds
    const char* text;
};

struct LinkRow : Row {
    const char* key;
    QByteArray content; // what the object "box" holds
    const char* text;
    const char* resolvedKey;
};

struct FailureRow : Row {
    const char* key;
    bool link;
    QByteArray content; // what the object "box" holds
};

class Search : public testing::TestWithParam<SearchRow> {};
class PropertyRead : public testing::TestWithParam<ReadRow> {};
class LinkRead : public testing::TestWithParam<LinkRow> {};
class FailedRead : public testing::TestWithParam<FailureRow> {};

const SearchRow Searches[] = {
    {"ADirectChildIsFound", "<r><a id='x' n='1'/></r>", "x", "1"},
    {"TheFirstOfTwoChildrenIsFound", "<r><a id='x' n='1'/><b id='x' n='2'/></r>", "x", "1"},
    {"ALaterChildComesBeforeADeeperElement",
     "<r><a class='c'><b id='x' n='1'/></a><b id='x' n='2'/></r>", "x", "2"},
    {"AChildOfAnElementWithAClassIsFound", "<r><a class='group'><b id='x' n='1'/></a></r>", "x",
     "1"},
    {"AChildOfAnElementWithoutAClassIsNotFound", "<r><a><b id='x' n='1'/></a></r>", "x", ""},
    {"AChildOfAnElementWithAnEmptyClassIsNotFound", "<r><a class=''><b id='x' n='1'/></a></r>", "x",
     ""},
    {"TheBranchOfTheFirstElementWithAClassComesFirst",
     "<r><a class='c'><b class='c'><b id='x' n='1'/></b></a><a class='c'><b id='x' n='2'/></a></r>",
     "x", "1"},
    {"WithinABranchTheHigherLevelComesFirst",
     "<r><a class='c'><b class='c'><b id='x' n='1'/></b><b id='x' n='2'/></a></r>", "x", "2"},
    {"TheCaseMatters", "<r><a id='X' n='1'/></r>", "x", ""},
    {"TheWholeValueMatters", "<r><a id='xy' n='1'/></r>", "x", ""},
    {"BlanksMatter", "<r><a id=' x' n='1'/></r>", "x", ""},
    {"TheParentItselfIsNotFound", "<r id='x' n='1'><a/></r>", "x", ""},
    {"AnotherAttributeIsNotLookedAt", "<r><a link='x' n='1'/></r>", "x", ""},
    {"AnEmptyValueFindsNothing", "<r><a id='' n='1'/><a n='2'/></r>", "", ""},
    {"TextAndCommentsArePassedOver", "<r>text<!-- x --><?x y?><a id='x' n='1'/></r>", "x", "1"},
    {"AnElementWithoutChildrenHoldsNothing", "<r/>", "x", ""},
};

const ReadRow PropertyReads[] = {
    {"PlainText", "box.text", "<text>abc</text>", "abc"},
    {"AnEmptyElement", "box.text", "<text/>", ""},
    {"ABlankElement", "box.text", "<text>  </text>", ""},
    {"TextWithBlanksAround", "box.text", "<text> a </text>", " a "},
    {"EscapedCharacters", "box.text", "<text>a &lt; b &amp; c</text>", "a < b & c"},
    {"CharacterData", "box.text", "<text><![CDATA[<b>]]></text>", "<b>"},
    {"TheFirstOfTwo", "box.text", "<text>1</text><text>2</text>", "1"},
    {"AtAnyDepth", "box.text", "<more><text>1</text></more>", "1"},
    {"TheFirstInDocumentOrder", "box.text", "<more><text>1</text></more><text>2</text>", "1"},
    {"AnyElementName", "box.nothing", "<nothing>1</nothing>", "1"},
};

const LinkRow LinkReads[] = {
    {"PlainText", "box.l", "<title link='l'>abc</title>", "abc", "box.title"},
    {"AnEmptyElement", "box.l", "<title link='l'/>", "", "box.title"},
    {"TheFirstOfTwo", "box.l", "<a link='l'>1</a><b link='l'>2</b>", "1", "box.a"},
    {"NotTheFirstElementOfThatName", "box.l", "<a>1</a><a link='l'>2</a>", "2", "box.a"},
    {"InsideAnElementWithAClass", "box.l", "<g class='c'><a link='l'>1</a></g>", "1", "box.a"},
};

const FailureRow FailedReads[] = {
    {"AKeyWithoutAPoint", "box", false, "<text>1</text>"},
    {"AnEmptyKey", "", false, "<text>1</text>"},
    {"AKeyWithTwoPoints", "box.text.x", false, "<text>1</text>"},
    {"AKeyWithoutAnObject", ".text", false, "<text>1</text>"},
    {"AKeyWithoutAProperty", "box.", false, "<text>1</text>"},
    {"ALonePoint", ".", false, "<text>1</text>"},
    {"AnUnknownObject", "bag.text", false, "<text>1</text>"},
    {"AnUnknownProperty", "box.text", false, "<Text>1</Text>"},
    {"APropertyThatHoldsElements", "box.text", false, "<text>a<b/>c</text>"},
    {"APropertyThatHoldsOneElement", "box.text", false, "<text><b>1</b></text>"},
    {"APropertyThatHoldsAComment", "box.text", false, "<text><!-- 1 --></text>"},
    {"APropertyThatHoldsTextAndAComment", "box.text", false, "<text>1<!-- 1 --></text>"},
    {"TheFirstOfTwoPropertiesHoldsElements", "box.text", false, "<text><b/></text><text>1</text>"},
    {"AnUnknownLink", "box.l", true, "<l>1</l>"},
    {"ALinkOfAnotherCase", "box.l", true, "<a link='L'>1</a>"},
    {"ALinkInsideAnElementWithoutAClass", "box.l", true, "<g><a link='l'>1</a></g>"},
    {"ALinkToAnElementThatHoldsElements", "box.l", true, "<a link='l'>1<b/></a>"},
    {"ALinkWithoutAName", "box.", true, "<a link=''>1</a>"},
};

QByteArray boxDocument(const QByteArray& content) {
    return canvasDocument(itemElement("text", content, "box"));
}

int read(Layout& layout, const char* key, QString& value, QString& resolvedKey, bool link) {
    return layout.handler().GetValueFromObject(QString::fromLatin1(key), value, resolvedKey, link,
                                               true);
}

} // namespace

TEST_P(Search, GoesLevelByLevelThroughElementsWithAClass) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(GetParam().root));
    const QDomNode match = VelnorXml::matchIDInRootElement(document.documentElement(),
                                                           QString::fromLatin1(GetParam().value));
    EXPECT_EQ(match.isNull(), GetParam().match[0] == '\0');
    EXPECT_EQ(match.toElement().attribute(QStringLiteral("n")),
              QString::fromLatin1(GetParam().match));
}

TEST_P(PropertyRead, GivesTheText) {
    Layout layout(boxDocument(GetParam().property));
    QString value = QStringLiteral("before");
    QString resolvedKey = QStringLiteral("before");
    EXPECT_EQ(read(layout, GetParam().key, value, resolvedKey, false), 0);
    EXPECT_EQ(value, QString::fromLatin1(GetParam().text));
    EXPECT_EQ(resolvedKey, QString());
}

TEST_P(LinkRead, GivesTheTextAndTheResolvedKey) {
    Layout layout(boxDocument(GetParam().content));
    QString value = QStringLiteral("before");
    QString resolvedKey;
    EXPECT_EQ(read(layout, GetParam().key, value, resolvedKey, true), 0);
    EXPECT_EQ(value, QString::fromLatin1(GetParam().text));
    EXPECT_EQ(resolvedKey, QString::fromLatin1(GetParam().resolvedKey));
}

TEST_P(FailedRead, AnswersOneAndKeepsTheValue) {
    Layout layout(boxDocument(GetParam().content));
    QString value = QStringLiteral("before");
    QString resolvedKey;
    EXPECT_EQ(read(layout, GetParam().key, value, resolvedKey, GetParam().link), 1);
    EXPECT_EQ(value, QStringLiteral("before"));
}

INSTANTIATE_TEST_SUITE_P(ObjectLookup, Search, testing::ValuesIn(Searches), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectLookup, PropertyRead, testing::ValuesIn(PropertyReads),
                         RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectLookup, LinkRead, testing::ValuesIn(LinkReads), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectLookup, FailedRead, testing::ValuesIn(FailedReads), RuleAsName());

TEST(ObjectLookup, FindsLinksByTheLinkAttribute) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(QByteArray("<r><a id='x'/><b link='x'/></r>")));
    const QDomElement root = document.documentElement();
    const QString name = QStringLiteral("x");
    EXPECT_EQ(VelnorXml::matchLinkInRootElement(root, name).nodeName(), QStringLiteral("b"));
    EXPECT_EQ(VelnorXml::matchIDInRootElement(root, name).nodeName(), QStringLiteral("a"));
}

TEST(ObjectLookup, FindsByAnyAttribute) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(QByteArray("<r><a colour='red'/></r>")));
    const QDomNode match = VelnorXml::matchAttrInRootElement(
        document.documentElement(), QStringLiteral("colour"), QStringLiteral("red"));
    EXPECT_EQ(match.nodeName(), QStringLiteral("a"));
}

TEST(ObjectLookup, FindsNothingInANullElement) {
    EXPECT_TRUE(VelnorXml::matchIDInRootElement(QDomElement(), QStringLiteral("x")).isNull());
}

TEST(ObjectLookup, ReadsItemsInsideItems) {
    Layout layout(canvasDocument(
        itemElement("text", itemElement("text", element("text", "deep"), "inner"), "outer")));
    QString value;
    QString resolvedKey;
    EXPECT_EQ(read(layout, "inner.text", value, resolvedKey, false), 0);
    EXPECT_EQ(value, QStringLiteral("deep"));
}

TEST(ObjectLookup, ReadsTheFirstOfTwoObjectsWithTheSameId) {
    Layout layout(canvasDocument(
        itemElement("group", itemElement("text", element("text", "deeper"), "box"), "a") +
        itemElement("text", element("text", "higher"), "box")));
    QString value;
    QString resolvedKey;
    EXPECT_EQ(read(layout, "box.text", value, resolvedKey, false), 0);
    EXPECT_EQ(value, QStringLiteral("higher"));
}

TEST(ObjectLookup, ReadsObjectTagsInThePlaceOfTheDocument) {
    Layout layout(boxDocument("<text>old</text>"));
    layout.handler().SetObjectTagDictionary("box.text", "new", false, false);
    QString value;
    QString resolvedKey;
    EXPECT_EQ(read(layout, "box.text", value, resolvedKey, false), 0);
    EXPECT_EQ(value, QStringLiteral("new"));
}

TEST(ObjectLookup, ReloadsOnlyWhenAsked) {
    Layout layout(boxDocument("<text>one</text>"));
    const QString key = QStringLiteral("box.text");
    QString value;
    QString resolvedKey;
    ASSERT_EQ(layout.handler().GetValueFromObject(key, value, resolvedKey, false, false), 0);
    layout.rewrite(boxDocument("<text>two</text>"));
    ASSERT_EQ(layout.handler().GetValueFromObject(key, value, resolvedKey, false, false), 0);
    EXPECT_EQ(value, QStringLiteral("one"));
    ASSERT_EQ(layout.handler().GetValueFromObject(key, value, resolvedKey, false, true), 0);
    EXPECT_EQ(value, QStringLiteral("two"));
}

TEST(ObjectLookup, LeavesAnOutdatedTextInvalidWhereItDoesNotReload) {
    Layout layout(boxDocument("<text>one</text>"));
    const QString key = QStringLiteral("box.text");
    QString value;
    QString resolvedKey;
    ASSERT_EQ(layout.handler().GetValueFromObject(key, value, resolvedKey, false, true), 0);
    layout.handler().SetTagDictionary("a", "1");
    ASSERT_EQ(layout.handler().GetValueFromObject(key, value, resolvedKey, false, false), 0);
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(ObjectLookup, LoadsTheTextWhenNothingIsKept) {
    Layout layout(boxDocument("<text>one</text>"));
    QString value;
    QString resolvedKey;
    EXPECT_EQ(layout.handler().GetValueFromObject(QStringLiteral("box.text"), value, resolvedKey,
                                                  false, false),
              0);
    EXPECT_TRUE(layout.handler().isWorkTextValid());
}

TEST(ObjectLookup, FailsInADocumentThatIsNestedTooDeeply) {
    Layout layout(boxDocument("<text>1</text>" + nested("a", 40000)));
    QString value;
    QString resolvedKey;
    EXPECT_EQ(read(layout, "box.text", value, resolvedKey, false), 1);
}
