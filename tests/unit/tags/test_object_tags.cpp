#include "support/layouts.h"
#include "support/printing.h"
#include "support/qt_messages.h"
#include "support/rows.h"

#include <QDomDocument>

#include <utility>
#include <vector>

namespace {

using Tags = std::vector<std::pair<const char*, const char*>>;

struct ApplyRow : Row {
    Tags tags;
    QByteArray root;
    QByteArray changed;
};

struct SetRow : Row {
    const char* key;
    int result;
    const char* storedKey; // null: nothing is stored
};

class Application : public testing::TestWithParam<ApplyRow> {};
class SetTag : public testing::TestWithParam<SetRow> {};
class SetLink : public testing::TestWithParam<SetRow> {};
class KeepLink : public testing::TestWithParam<SetRow> {};

const ApplyRow Applications[] = {
    {"PlainTextIsReplaced",
     {{"o.p", "new"}},
     "<r><o id='o'><p>old</p></o></r>",
     "<r><o id='o'><p>new</p></o></r>"},
    {"AnEmptyElementIsFilled",
     {{"o.p", "new"}},
     "<r><o id='o'><p/></o></r>",
     "<r><o id='o'><p>new</p></o></r>"},
    {"CharacterDataIsReplaced",
     {{"o.p", "new"}},
     "<r><o id='o'><p><![CDATA[old]]></p></o></r>",
     "<r><o id='o'><p><![CDATA[new]]></p></o></r>"},
    {"AMissingElementIsMadeAsTheLastChild",
     {{"o.p", "new"}},
     "<r><o id='o'><q>1</q></o></r>",
     "<r><o id='o'><q>1</q><p>new</p></o></r>"},
    {"AnElementThatWasMadeIsUpdated",
     {{"o.p", "1"}, {"o.p", "2"}},
     "<r><o id='o'/></r>",
     "<r><o id='o'><p>2</p></o></r>"},
    {"TheLaterOfTwoValuesWins",
     {{"o.p", "1"}, {"o.p", "2"}},
     "<r><o id='o'><p>0</p></o></r>",
     "<r><o id='o'><p>2</p></o></r>"},
    {"AnEmptyValueEmptiesTheElement",
     {{"o.p", ""}},
     "<r><o id='o'><p>old</p></o></r>",
     "<r><o id='o'><p></p></o></r>"},
    {"ANullValueEmptiesTheElement",
     {{"o.p", nullptr}},
     "<r><o id='o'><p>old</p></o></r>",
     "<r><o id='o'><p></p></o></r>"},
    {"OnlyTheFirstElementIsChanged",
     {{"o.p", "new"}},
     "<r><o id='o'><p>1</p><p>2</p></o></r>",
     "<r><o id='o'><p>new</p><p>2</p></o></r>"},
    {"AnElementAtAnyDepthIsChanged",
     {{"o.p", "new"}},
     "<r><o id='o'><q><p>1</p></q><p>2</p></o></r>",
     "<r><o id='o'><q><p>new</p></q><p>2</p></o></r>"},
    {"MixedContentStays",
     {{"o.p", "new"}},
     "<r><o id='o'><p>a<b/>c</p></o></r>",
     "<r><o id='o'><p>a<b/>c</p></o></r>"},
    {"ASingleElementInsideStays",
     {{"o.p", "new"}},
     "<r><o id='o'><p><b/></p></o></r>",
     "<r><o id='o'><p><b/></p></o></r>"},
    {"ASingleCommentInsideStays",
     {{"o.p", "new"}},
     "<r><o id='o'><p><!--c--></p></o></r>",
     "<r><o id='o'><p><!--c--></p></o></r>"},
    {"AnUnknownObjectIsSkipped",
     {{"x.p", "new"}, {"o.p", "2"}},
     "<r><o id='o'><p>1</p></o></r>",
     "<r><o id='o'><p>2</p></o></r>"},
    {"AnEmptyObjectNameIsSkipped",
     {{".p", "new"}},
     "<r><o id=''><p>1</p></o></r>",
     "<r><o id=''><p>1</p></o></r>"},
    {"AnObjectInsideAnElementWithoutAClassIsSkipped",
     {{"o.p", "new"}},
     "<r><g><o id='o'><p>1</p></o></g></r>",
     "<r><g><o id='o'><p>1</p></o></g></r>"},
    {"AnObjectInsideAnElementWithAClassIsChanged",
     {{"o.p", "new"}},
     "<r><g class='c'><o id='o'><p>1</p></o></g></r>",
     "<r><g class='c'><o id='o'><p>new</p></o></g></r>"},
    {"TheValueNeedsNoEscaping",
     {{"o.p", "<b> & c"}},
     "<r><o id='o'><p>1</p></o></r>",
     "<r><o id='o'><p>&lt;b> &amp; c</p></o></r>"},
    {"TheValueIsUtf8",
     {{"o.p", "\xE2\x82\xAC"}},
     "<r><o id='o'><p>1</p></o></r>",
     "<r><o id='o'><p>\xE2\x82\xAC</p></o></r>"},
    {"TheKeyIsLatin1",
     {{"\xF6.p", "new"}},
     "<r><o id='\xC3\xB6'><p>1</p></o></r>",
     "<r><o id='\xC3\xB6'><p>new</p></o></r>"},
};

const SetRow TagKeys[] = {
    {"AnObjectAndAPropertyAreStored", "box.text", 0, "box.text"},
    {"AnUnknownObjectIsStoredAllTheSame", "bag.text", 0, "bag.text"},
    {"AnEmptyPropertyIsStored", "box.", 0, "box."},
    {"AnEmptyObjectIsStored", ".text", 0, ".text"},
    {"ALonePointIsStored", ".", 0, "."},
    {"TwoPointsFail", "box.text.x", 1, nullptr},
    {"PointsAloneFail", "...", 1, nullptr},
    {"AKeyWithoutAPointIsNoObjectTag", "name", 0, nullptr},
    {"AnEmptyKeyIsNoObjectTag", "", 0, nullptr},
    {"ANullKeyIsNoObjectTag", nullptr, 0, nullptr},
};

const SetRow LinkKeys[] = {
    {"ALinkIsStoredByItsElementName", "box.caption", 0, "box.title"},
    {"AnUnknownLinkIsNotStored", "box.nowhere", 1, nullptr},
    {"AnUnknownObjectIsNotStored", "bag.caption", 1, nullptr},
    {"AnElementNameIsNoLink", "box.title", 1, nullptr},
    {"AnEmptyLinkIsNotStored", "box.", 1, nullptr},
    {"AnEmptyObjectIsNotStored", ".caption", 1, nullptr},
    {"ALinkToMixedContentIsNotStored", "box.mixed", 1, nullptr},
    {"TwoPointsFail", "box.caption.x", 1, nullptr},
    {"AKeyWithoutAPointIsNoObjectTag", "name", 0, nullptr},
    {"ANullKeyIsNoObjectTag", nullptr, 0, nullptr},
};

const SetRow KeptLinkKeys[] = {
    {"ALinkIsStoredByItsElementName", "box.caption", 0, "box.title"},
    {"AnUnknownLinkIsStoredAsGiven", "box.nowhere", 1, "box.nowhere"},
    {"AnUnknownObjectIsStoredAsGiven", "bag.caption", 1, "bag.caption"},
    {"AnEmptyLinkIsStoredAsGiven", "box.", 1, "box."},
    {"TwoPointsAreNotStored", "box.caption.x", 1, nullptr},
};

const char LinkContent[] = "<title link=\"caption\">old</title><p link=\"mixed\">a<b/></p>";

QByteArray boxDocument(const QByteArray& content) {
    return canvasDocument(itemElement("text", content, "box"));
}

void expectStored(const SetRow& row, bool link, bool keepUnresolved) {
    Layout layout(boxDocument(LinkContent));
    EXPECT_EQ(layout.handler().SetObjectTagDictionary(row.key, "v", link, keepUnresolved),
              row.result);
    const auto& stored = layout.handler().objectTags();
    ASSERT_EQ(stored.size(), row.storedKey == nullptr ? 0 : 1);
    if (!stored.isEmpty()) {
        EXPECT_EQ(stored[0].key, QString::fromLatin1(row.storedKey));
        EXPECT_EQ(stored[0].value, QStringLiteral("v"));
    }
}

QString titleOf(Layout& layout) {
    char value[100] = "";
    layout.handler().GetObjectTagDictionary("box.title", value, sizeof value, false);
    return QString::fromUtf8(value);
}

} // namespace

TEST_P(Application, FollowsItsRule) {
    VelnorXml handler(nullptr, nullptr, nullptr);
    for (const auto& [key, value] : GetParam().tags) {
        handler.SetObjectTagDictionary(key, value, false, false);
    }
    QDomDocument document;
    QDomDocument changed;
    ASSERT_TRUE(document.setContent(GetParam().root));
    ASSERT_TRUE(changed.setContent(GetParam().changed));
    EXPECT_EQ(handler.applyObjectTagsToXmlDoc(document), 0);
    // An element that holds an empty text is written like an empty element.
    const QString written =
        document.toString(-1).replace(QLatin1String("<p></p>"), QLatin1String("<p/>"));
    EXPECT_EQ(written, changed.toString(-1));
}

TEST_P(SetTag, StoresTheKeyAsGiven) {
    expectStored(GetParam(), false, false);
}

TEST_P(SetLink, StoresOnlyWhatIsResolved) {
    expectStored(GetParam(), true, false);
}

TEST_P(KeepLink, StoresWhatIsNotResolvedToo) {
    expectStored(GetParam(), true, true);
}

INSTANTIATE_TEST_SUITE_P(ObjectTags, Application, testing::ValuesIn(Applications), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectTags, SetTag, testing::ValuesIn(TagKeys), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectTags, SetLink, testing::ValuesIn(LinkKeys), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ObjectTags, KeepLink, testing::ValuesIn(KeptLinkKeys), RuleAsName());

TEST(ObjectTags, OfANullDocumentFail) {
    QDomDocument null;
    EXPECT_EQ(VelnorXml(nullptr, nullptr, nullptr).applyObjectTagsToXmlDoc(null), 1);
}

TEST(ObjectTags, OfAnEmptyDictionaryChangeNothing) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(QByteArray("<r><o id='o'/></r>")));
    const QString before = document.toString(-1);
    EXPECT_EQ(VelnorXml(nullptr, nullptr, nullptr).applyObjectTagsToXmlDoc(document), 0);
    EXPECT_EQ(document.toString(-1), before);
}

TEST(ObjectTags, WithoutAPointAreTags) {
    for (const bool link : {false, true}) {
        Layout layout(boxDocument("<text>%name%</text>"));
        EXPECT_EQ(layout.handler().SetObjectTagDictionary("name", "v", link, false), 0);
        ASSERT_EQ(layout.handler().tags().size(), 1);
        EXPECT_EQ(layout.handler().tags()[0].key, QStringLiteral("%name%"));
        EXPECT_EQ(layout.handler().tags()[0].value, QStringLiteral("v"));
        EXPECT_FALSE(layout.handler().isWorkTextValid());
    }
}

TEST(ObjectTags, KeepOrderAndDuplicates) {
    VelnorXml handler(nullptr, nullptr, nullptr);
    handler.SetObjectTagDictionary("a.b", "1", false, false);
    handler.SetObjectTagDictionary("a.b", "2", false, false);
    ASSERT_EQ(handler.objectTags().size(), 2);
    EXPECT_EQ(handler.objectTags()[0].value, QStringLiteral("1"));
    EXPECT_EQ(handler.objectTags()[1].value, QStringLiteral("2"));
}

TEST(ObjectTags, SetAPropertyThatTheObjectDoesNotHave) {
    Layout layout(canvasDocument(itemElement("text", "<x>1</x>", "logo")));
    layout.handler().SetObjectTagDictionary("logo.text", "made", false, false);
    const auto canvas = layout.parse();
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(onlyItem<VelnorDrawableText>(*canvas).text, QStringLiteral("made"));
}

TEST(ObjectTags, WithAnEmptyPropertyChangeNothingThatIsReadWithoutAWord) {
    const QtMessages messages;
    Layout layout(boxDocument("<text>old</text>"));
    layout.handler().SetObjectTagDictionary("box.", "v", false, false);
    const auto canvas = layout.parse();
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(onlyItem<VelnorDrawableText>(*canvas).text, QStringLiteral("old"));
    EXPECT_EQ(messages.heard(), "");
}

TEST(ObjectTags, OfThousandsOfKeysAreAllApplied) {
    Layout layout(boxDocument(""));
    for (int i = 0; i < 2000; ++i) {
        const QByteArray key = "box.p" + QByteArray::number(i);
        layout.handler().SetObjectTagDictionary(key.constData(), "v", false, false);
    }
    EXPECT_EQ(layout.handler().GetObjectTagDictionary("box.p1999", nullptr, 0, false), 0);
}

TEST(ObjectLinks, SetTheTextOfTheirElement) {
    Layout layout(boxDocument("<title link=\"caption\">old</title>"));
    EXPECT_EQ(layout.handler().SetObjectTagDictionary("box.caption", "new", true, false), 0);
    EXPECT_EQ(titleOf(layout), QStringLiteral("new"));
}

TEST(ObjectLinks, SetAnEarlierElementOfTheSameName) {
    Layout layout(boxDocument("<title>first</title><title link=\"caption\">second</title>"));
    EXPECT_EQ(layout.handler().SetObjectTagDictionary("box.caption", "new", true, false), 0);
    EXPECT_EQ(titleOf(layout), QStringLiteral("new"));
}

TEST(ObjectLinks, AreNotResolvedWithoutADocument) {
    Layout layout("");
    layout.remove();
    EXPECT_EQ(layout.handler().SetObjectTagDictionary("box.caption", "v", true, false), 1);
    EXPECT_TRUE(layout.handler().objectTags().isEmpty());
    EXPECT_EQ(layout.handler().SetObjectTagDictionary("box.caption", "v", true, true), 1);
    EXPECT_EQ(layout.handler().objectTags().size(), 1);
}
