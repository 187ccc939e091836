// Parameter files: what they hold, and what applying them stores.
#include "support/layouts.h"
#include "support/printing.h"
#include "support/qt_messages.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <QFile>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs pairsOf(const QList<DictionaryItem>& items) {
    Pairs pairs;
    for (const DictionaryItem& item : items) {
        pairs.emplace_back(item.key.toStdString(), item.value.toStdString());
    }
    return pairs;
}

QByteArray params(const QByteArray& entries) {
    return "<VelnorParams>" + entries + "</VelnorParams>";
}

QByteArray entry(const QByteArray& id, const QByteArray& values) {
    return "<VelnorParam id='" + id + "'>" + values + "</VelnorParam>";
}

// A document with a link, and a parameter file beside it.
class ParamFile {
public:
    explicit ParamFile(const QByteArray& content)
        : file(layout.folder().write(QStringLiteral("params.xml"), content).toUtf8()) {}

    VelnorXml& handler() { return layout.handler(); }
    const char* path() const { return file.constData(); }

private:
    Layout layout{canvasDocument(
        itemElement("text", "<title link='caption'>old</title><text>plain</text>", "box"))};
    QByteArray file;
};

struct ListRow : Row {
    QByteArray file;
    Pairs pairs;
};

const ListRow Lists[] = {
    {{"AValueIsAPairOfIdAndElementName"},
     params(entry("ticket", "<price>12.50</price>")),
     {{"ticket.price", "12.50"}}},
    {{"ValuesAndEntriesComeInTheirOrder"},
     params(entry("ticket", "<price>12.50</price><date>31.01.</date>") +
            entry("bill", "<price>1</price>")),
     {{"ticket.price", "12.50"}, {"ticket.date", "31.01."}, {"bill.price", "1"}}},
    {{"TheSamePairMayOccurTwice"},
     params(entry("a", "<b>1</b><b>2</b>") + entry("a", "<b>3</b>")),
     {{"a.b", "1"}, {"a.b", "2"}, {"a.b", "3"}}},
    {{"EntriesLieAnywhereBelowTheRoot"},
     params("<group><more>" + entry("a", "<b>1</b>") + "</more></group>" + entry("c", "<d>2</d>")),
     {{"a.b", "1"}, {"c.d", "2"}}},
    {{"AnEntryInsideAnEntryIsAValueAndAnEntry"},
     params(entry("a", entry("c", "<d>2</d>"))),
     {{"a.VelnorParam", "2"}, {"c.d", "2"}}},
    {{"NestedTextsAreJoined"}, params(entry("a", "<b>1<i>2<u>3</u></i>4</b>")), {{"a.b", "1234"}}},
    {{"AnEmptyValueIsAnEmptyText"}, params(entry("a", "<b/><c></c>")), {{"a.b", ""}, {"a.c", ""}}},
    {{"CharacterDataIsText"}, params(entry("a", "<b><![CDATA[<&>]]></b>")), {{"a.b", "<&>"}}},
    {{"ReferencesAreResolved"},
     params(entry("a", "<b>&lt;&#8364;</b>")),
     {{"a.b", "<\xE2\x82\xAC"}}},
    {{"BlanksOfAValueAreKept"}, params(entry("a", "<b> 1 </b>")), {{"a.b", " 1 "}}},
    {{"PlaceholdersAreKept"}, params(entry("a", "<b>%tag%</b>")), {{"a.b", "%tag%"}}},
    {{"ACommentIsAPairWithoutAName"},
     params(entry("a", "<!--note--><b>1</b>")),
     {{"a.", ""}, {"a.b", "1"}}},
    {{"AProcessingInstructionIsAPairWithoutAName"},
     params(entry("a", "<b>1</b><?print now?>")),
     {{"a.b", "1"}, {"a.", ""}}},
    {{"ATextBetweenValuesIsAPairWithoutAName"},
     params(entry("a", "<b>1</b>stray")),
     {{"a.b", "1"}, {"a.", ""}}},
    {{"BlanksBetweenValuesAreNoPairs"},
     params("\n " + entry("a", "\n  <b>1</b>\n  ") + "\n"),
     {{"a.b", "1"}}},
    {{"ACommentInsideAValueIsNoText"}, params(entry("a", "<b>1<!--2-->3</b>")), {{"a.b", "13"}}},
    {{"AnEntryWithoutAnIdIsSkipped"},
     params("<VelnorParam><b>1</b></VelnorParam>" + entry("c", "<d>2</d>")),
     {{"c.d", "2"}}},
    {{"AnEntryWithAnEmptyIdIsSkipped"},
     params(entry("", "<b>1</b>") + entry("c", "<d>2</d>")),
     {{"c.d", "2"}}},
    {{"EntriesWithoutIdsAloneGiveAnEmptyList"}, params(entry("", "<b>1</b>")), {}},
    {{"AnEntryWithoutValuesGivesAnEmptyList"}, params(entry("a", "")), {}},
    {{"AnIdWithAPointIsListed"}, params(entry("a.b", "<c>1</c>")), {{"a.b.c", "1"}}},
    {{"OtherElementsAreNoEntries"},
     params("<Param id='x'><y>1</y></Param>" + entry("a", "<b>1</b>")),
     {{"a.b", "1"}}},
    {{"NamesAndValuesOutsideAsciiAreListed"},
     params(entry("\xC3\xB6", "<\xC3\xA4>\xE2\x82\xAC</\xC3\xA4>")),
     {{"\xC3\xB6.\xC3\xA4", "\xE2\x82\xAC"}}},
    {{"ThePrologueTellsTheEncoding"},
     "<?xml version='1.0' encoding='ISO-8859-1'?>" + params(entry("a", "<b>\xFC</b>")),
     {{"a.b", "\xC3\xBC"}}},
};

class ParamList : public testing::TestWithParam<ListRow> {};

TEST_P(ParamList, HoldsThesePairsAndStoresNothing) {
    ParamFile file(GetParam().file);
    QList<DictionaryItem> items;
    EXPECT_EQ(file.handler().ParseParamsApplyTagGeneric(file.path(), &items), 0);
    EXPECT_EQ(pairsOf(items), GetParam().pairs);
    EXPECT_TRUE(file.handler().objectTags().isEmpty());
    EXPECT_TRUE(file.handler().tags().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(ParamFiles, ParamList, testing::ValuesIn(Lists), RuleAsName());

const ListRow Applications[] = {
    {{"ALinkIsStoredByItsElementName"},
     params(entry("box", "<caption>new</caption>")),
     {{"box.title", "new"}}},
    {{"AnElementNameIsStoredAsGiven"},
     params(entry("box", "<text>new</text>")),
     {{"box.text", "new"}}},
    {{"AnUnknownObjectIsStoredAsGiven"},
     params(entry("bag", "<caption>new</caption>")),
     {{"bag.caption", "new"}}},
    {{"AnIdWithAPointIsDropped"},
     params(entry("a.b", "<c>1</c>") + entry("box", "<text>2</text>")),
     {{"box.text", "2"}}},
    {{"AnElementNameWithAPointIsDropped"},
     params(entry("box", "<b.c>1</b.c><text>2</text>")),
     {{"box.text", "2"}}},
    {{"AnEntryWithoutAnIdIsDropped"},
     params("<VelnorParam><b>1</b></VelnorParam>" + entry("box", "<text>2</text>")),
     {{"box.text", "2"}}},
    {{"ACommentIsStoredWithoutAName"},
     params(entry("box", "<!--note--><text>2</text>")),
     {{"box.", ""}, {"box.text", "2"}}},
    {{"TheSameKeyIsStoredTwice"},
     params(entry("box", "<caption>1</caption><caption>2</caption>")),
     {{"box.title", "1"}, {"box.title", "2"}}},
    {{"NamesOutsideAsciiAreStoredByteByByte"},
     params(entry("\xC3\xB6", "<text>\xE2\x82\xAC</text>")),
     {{"\xC3\x83\xC2\xB6.text", "\xE2\x82\xAC"}}},
    {{"ValuesNeedNoEscapingTwice"},
     params(entry("box", "<text>&lt;b&gt; &amp; c</text>")),
     {{"box.text", "<b> & c"}}},
};

class ParamApplication : public testing::TestWithParam<ListRow> {};

TEST_P(ParamApplication, StoresThesePairs) {
    ParamFile file(GetParam().file);
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 0);
    EXPECT_EQ(pairsOf(file.handler().objectTags()), GetParam().pairs);
    EXPECT_TRUE(file.handler().tags().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(ParamFiles, ParamApplication, testing::ValuesIn(Applications),
                         RuleAsName());

struct BrokenRow : Row {
    QByteArray file;
};

const BrokenRow Broken[] = {
    {{"AnEmptyFile"}, ""},
    {{"NoXml"}, "price=12.50"},
    {{"AnElementThatIsNotClosed"}, "<VelnorParams><VelnorParam id='a'><b>1</b>"},
    {{"TwoRoots"}, params(entry("a", "<b>1</b>")) + params("")},
    {{"TheRootVelnorParam"}, "<VelnorParam id='a'><b>1</b></VelnorParam>"},
    {{"ARootInOtherLetters"}, "<velnorparams>" + entry("a", "<b>1</b>") + "</velnorparams>"},
    {{"ALayoutDocument"}, canvasDocument(entry("a", "<b>1</b>"))},
    {{"NoEntry"}, params("")},
    {{"EntriesInOtherLetters"}, params("<velnorparam id='a'><b>1</b></velnorparam>")},
    {{"ElementsNestedTooDeeply"}, params(entry("a", nested("b", 300)))},
};

class BrokenParamFile : public testing::TestWithParam<BrokenRow> {};

TEST_P(BrokenParamFile, FailsAndStoresNothingWithoutAWord) {
    const QtMessages messages;
    ParamFile file(GetParam().file);
    QList<DictionaryItem> items;
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 1);
    EXPECT_EQ(file.handler().ParseParamsApplyTagGeneric(file.path(), &items), 1);
    EXPECT_TRUE(items.isEmpty());
    EXPECT_TRUE(file.handler().objectTags().isEmpty());
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(ParamFiles, BrokenParamFile, testing::ValuesIn(Broken), RuleAsName());

TEST(ParamFiles, ThatDoNotExistFailWithoutAWord) {
    const QtMessages messages;
    VelnorXml handler(nullptr, nullptr, nullptr);
    for (const char* path : {"/no/such/file.xml", "/", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(handler.ParseParamsApplyTag(path), 1);
    }
    EXPECT_TRUE(handler.objectTags().isEmpty());
    EXPECT_EQ(messages.heard(), "");
}

TEST(ParamFiles, MayHaveNamesOutsideAscii) {
    Layout layout(canvasDocument(""));
    const QByteArray path =
        layout.folder()
            .write(QString::fromUtf8("\xE2\x82\xAC.xml"), params(entry("page", "<x>1</x>")))
            .toUtf8();
    EXPECT_EQ(layout.handler().ParseParamsApplyTag(path.constData()), 0);
    EXPECT_EQ(pairsOf(layout.handler().objectTags()), (Pairs{{"page.x", "1"}}));
}

TEST(ParamFiles, AreNotSubstitutedByTags) {
    ParamFile file(params(entry("box", "<text>%v%</text>")));
    file.handler().SetTagDictionary("v", "tag");
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 0);
    EXPECT_EQ(pairsOf(file.handler().objectTags()), (Pairs{{"box.text", "%v%"}}));
}

TEST(ParamFiles, AddToWhatWasSetBefore) {
    ParamFile file(params(entry("box", "<text>2</text>")));
    file.handler().SetObjectTagDictionary("box.text", "1", false, false);
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 0);
    EXPECT_EQ(pairsOf(file.handler().objectTags()), (Pairs{{"box.text", "1"}, {"box.text", "2"}}));
}

TEST(ParamFiles, ThatFailLeaveWhatWasSetBefore) {
    ParamFile file("<VelnorParam/>");
    file.handler().SetObjectTagDictionary("box.text", "1", false, false);
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 1);
    EXPECT_EQ(pairsOf(file.handler().objectTags()), (Pairs{{"box.text", "1"}}));
}

TEST(ParamFiles, CanBeAppliedWithoutADocument) {
    Layout layout("");
    const QByteArray path =
        layout.folder().write(QStringLiteral("p.xml"), params(entry("a", "<b>1</b>"))).toUtf8();
    layout.remove();
    EXPECT_EQ(layout.handler().ParseParamsApplyTag(path.constData()), 0);
    EXPECT_EQ(pairsOf(layout.handler().objectTags()), (Pairs{{"a.b", "1"}}));
}

} // namespace

TEST(ParamFiles, MayHoldAnyNumberOfValues) {
    constexpr int Count = 20000;
    ParamFile file(params(entry("t", QByteArray("<v>1</v>").repeated(Count))));
    QList<DictionaryItem> pairs;
    EXPECT_EQ(file.handler().ParseParamsApplyTagGeneric(file.path(), &pairs), 0);
    EXPECT_EQ(pairs.size(), Count);
    EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 0);
    EXPECT_EQ(file.handler().objectTags().size(), Count);
}

TEST(ParamFiles, SetThousandsOfValuesInOneObject) {
    QByteArray links;
    QByteArray values;
    for (int i = 0; i < 10000; ++i) {
        const QByteArray number = QByteArray::number(i);
        links += "<p" + number + " link='l" + number + "'>old</p" + number + '>';
        values += element('l' + number, "new " + number);
    }
    Layout layout(canvasDocument(itemElement("text", links, "box")));
    const QByteArray file =
        layout.folder().write(QStringLiteral("p.xml"), params(entry("box", values))).toUtf8();
    EXPECT_EQ(layout.handler().ParseParamsApplyTag(file.constData()), 0);
    char value[100] = "";
    EXPECT_EQ(layout.handler().GetObjectTagDictionary("box.p9999", value, sizeof value, false), 0);
    EXPECT_STREQ(value, "new 9999");
}

TEST(ParamFiles, AreRefusedWhoseNamesAndValuesAreLongerThanADocument) {
    const QByteArray longText(100000, 'x');
    const QByteArray value = "<v/>";
    for (const QByteArray& content : {entry(longText, value.repeated(1000)),
                                      nested("VelnorParam id='a'", 250, longText)
                                          .replace("</VelnorParam id='a'", "</VelnorParam")}) {
        ParamFile file(params(content));
        QList<DictionaryItem> pairs;
        EXPECT_EQ(file.handler().ParseParamsApplyTagGeneric(file.path(), &pairs), 1);
        EXPECT_TRUE(pairs.isEmpty());
        EXPECT_EQ(file.handler().ParseParamsApplyTag(file.path()), 1);
        EXPECT_TRUE(file.handler().objectTags().isEmpty());
    }
}
