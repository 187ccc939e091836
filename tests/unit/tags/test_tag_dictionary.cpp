#include "support/layouts.h"
#include "support/printing.h"
#include "support/qt_messages.h"
#include "support/rows.h"

#include <QFile>

#include <utility>
#include <vector>

namespace {

using Tags = std::vector<std::pair<const char*, const char*>>;

struct SubstitutionRow : Row {
    Tags tags;
    QByteArray document;
    QByteArray text;
};

class Substitution : public testing::TestWithParam<SubstitutionRow> {};

const SubstitutionRow Substitutions[] = {
    {"AnEmptyDocumentGivesAnEmptyText", {}, "", ""},
    {"ALastLineWithoutAnEndGetsOne", {}, "a\nb", "a\nb\n"},
    {"ALastLineWithAnEndStays", {}, "a\nb\n", "a\nb\n"},
    {"EmptyLinesStay", {}, "\n\na\n\n", "\n\na\n\n"},
    {"CarriageReturnsAreDropped", {}, "a\r\nb\r\n", "a\nb\n"},
    {"AByteOrderMarkIsDropped", {}, "\xEF\xBB\xBFx", "x\n"},
    {"TheTextIsUtf8", {}, "\xE2\x82\xAC", "\xE2\x82\xAC\n"},
    {"ThePrologueIsNotConsulted",
     {},
     "<?xml encoding=\"ISO-8859-1\"?>\xC3\xA9",
     "<?xml encoding=\"ISO-8859-1\"?>\xC3\xA9\n"},
    {"BytesThatAreNoUtf8AreReplaced", {}, "a\xFFz", "a\xEF\xBF\xBDz\n"},
    {"APlaceholderIsReplaced", {{"a", "1"}}, "x%a%y", "x1y\n"},
    {"EveryOccurrenceIsReplaced", {{"a", "1"}}, "%a%%a%\n%a%", "11\n1\n"},
    {"AnUnknownPlaceholderStays", {{"a", "1"}}, "%b%", "%b%\n"},
    {"TheCaseMatters", {{"Name", "1"}}, "%name%%Name%", "%name%1\n"},
    {"TheNameWithoutPercentSignsStays", {{"a", "1"}}, "a %a a%", "a %a a%\n"},
    {"APlaceholderAcrossALineEndStays", {{"ab", "1"}}, "%a\nb%", "%a\nb%\n"},
    {"AKeyWithALineBreakNeverMatches", {{"a\nb", "1"}}, "%a\nb%", "%a\nb%\n"},
    {"AnEmptyValueRemovesThePlaceholder", {{"a", ""}}, "x%a%y", "xy\n"},
    {"ANullValueRemovesThePlaceholder", {{"a", nullptr}}, "x%a%y", "xy\n"},
    {"AnEmptyKeyIsTwoPercentSigns", {{"", "1"}}, "a%%b", "a1b\n"},
    {"ANullKeyIsTwoPercentSigns", {{nullptr, "1"}}, "a%%b", "a1b\n"},
    {"PercentSignsInAKeyGetASecondPair", {{"%a%", "1"}}, "%a%%%a%%", "%a%1\n"},
    {"TheFirstValueOfANameWins", {{"a", "1"}, {"a", "2"}}, "%a%", "1\n"},
    {"AValueIsReplacedByALaterTag", {{"a", "%b%"}, {"b", "2"}}, "%a%", "2\n"},
    {"AValueIsNotReplacedByAnEarlierTag", {{"b", "2"}, {"a", "%b%"}}, "%a%", "%b%\n"},
    {"AValueIsNotReplacedByItsOwnTag", {{"a", "<%a%>"}}, "%a%", "<%a%>\n"},
    {"APlaceholderMayArise", {{"a", "%"}, {"b", "2"}}, "%a%b%", "2\n"},
    {"ValuesAreRawText", {{"a", "<b c=\"'\">&"}}, "%a%", "<b c=\"'\">&\n"},
    {"AValueMayHoldALineEnd", {{"a", "1\n2"}}, "%a%", "1\n2\n"},
    {"AValueIsUtf8", {{"a", "\xE2\x82\xAC"}}, "%a%", "\xE2\x82\xAC\n"},
    {"AKeyIsLatin1", {{"\xE9", "1"}}, "%\xC3\xA9%", "1\n"},
    {"AKeyIsNotUtf8", {{"\xC3\xA9", "1"}}, "%\xC3\xA9%", "%\xC3\xA9%\n"},
    {"AKeyIsNoPattern", {{".*", "1"}}, "%a%%.*%", "%a%1\n"},
};

QByteArray substituted(const VelnorXml& handler) {
    return handler.ReadXmlApplyTags().toUtf8();
}

// A document whose object "box" has a text, so that reading it keeps the document's text.
QByteArray readableDocument() {
    return canvasDocument(itemElement("text", element("text", "old"), "box"));
}

} // namespace

TEST_P(Substitution, FollowsItsRule) {
    Layout layout(GetParam().document);
    for (const auto& [key, value] : GetParam().tags) {
        layout.handler().SetTagDictionary(key, value);
    }
    EXPECT_EQ(substituted(layout.handler()), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(TagDictionary, Substitution, testing::ValuesIn(Substitutions),
                         RuleAsName());

TEST(TagDictionary, KeepsItemsInOrderWithPercentSigns) {
    Layout layout("");
    layout.handler().SetTagDictionary("b", "1");
    layout.handler().SetTagDictionary("a", "2");
    layout.handler().SetTagDictionary("b", "3");
    const auto& tags = layout.handler().tags();
    ASSERT_EQ(tags.size(), 3);
    EXPECT_EQ(tags[0].key, QStringLiteral("%b%"));
    EXPECT_EQ(tags[1].key, QStringLiteral("%a%"));
    EXPECT_EQ(tags[2].key, QStringLiteral("%b%"));
    EXPECT_EQ(tags[2].value, QStringLiteral("3"));
}

TEST(TagDictionary, DoesNotChangeTheFile) {
    const QByteArray document = "x%a%\r\n";
    Layout layout(document);
    layout.handler().SetTagDictionary("a", "1");
    substituted(layout.handler());
    QFile file(layout.handler().documentFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), document);
}

TEST(TagDictionary, GivesAnEmptyTextForAMissingDocument) {
    Layout layout("text");
    layout.remove();
    EXPECT_TRUE(layout.handler().ReadXmlApplyTags().isEmpty());
}

TEST(TagDictionary, GivesAnEmptyTextForAFolder) {
    const ScratchFolder folder;
    const VelnorXml handler(folder.utf8Path(QStringLiteral(".")).constData(), nullptr, nullptr);
    EXPECT_TRUE(handler.ReadXmlApplyTags().isEmpty());
}

TEST(TagDictionary, GivesAnEmptyTextForAnEmptyPathWithoutAWord) {
    const QtMessages messages;
    EXPECT_TRUE(VelnorXml(nullptr, nullptr, nullptr).ReadXmlApplyTags().isEmpty());
    EXPECT_TRUE(VelnorXml("", nullptr, nullptr).ReadXmlApplyTags().isEmpty());
    EXPECT_EQ(messages.heard(), "");
}

TEST(TagDictionary, ReadsADocumentWithLettersOutsideLatin1InItsPath) {
    const ScratchFolder folder;
    const QString name = QString::fromUtf8("\xD1\x84\xE2\x82\xAC.xml");
    folder.write(name, "x");
    const VelnorXml handler(folder.utf8Path(name).constData(), nullptr, nullptr);
    EXPECT_EQ(substituted(handler), QByteArray("x\n"));
}

TEST(TagDictionary, ReplacesInAVeryLongLine) {
    Layout layout(QByteArray("%a%").repeated(1000000));
    layout.handler().SetTagDictionary("a", "1");
    EXPECT_EQ(substituted(layout.handler()), QByteArray(1000000, '1') + '\n');
}

TEST(TagDictionary, TakesThousandsOfTags) {
    Layout layout("%n4999%");
    for (int i = 0; i < 5000; ++i) {
        const QByteArray number = QByteArray::number(i);
        layout.handler().SetTagDictionary(QByteArray("n" + number).constData(), number.constData());
    }
    EXPECT_EQ(substituted(layout.handler()), QByteArray("4999\n"));
}

TEST(TagDictionary, MakesAKeptTextInvalidWhenATagIsSet) {
    Layout layout(readableDocument());
    ASSERT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 0, false), 0);
    ASSERT_TRUE(layout.handler().isWorkTextValid());
    layout.handler().SetTagDictionary("a", "1");
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(ClearAllDictionary, EmptiesBothDictionaries) {
    Layout layout(readableDocument());
    layout.handler().SetTagDictionary("a", "1");
    layout.handler().SetObjectTagDictionary("box.text", "new", false, false);
    EXPECT_EQ(layout.handler().ClearAllDictionary(), 0);
    EXPECT_TRUE(layout.handler().tags().isEmpty());
    EXPECT_TRUE(layout.handler().objectTags().isEmpty());
}

TEST(ClearAllDictionary, OfEmptyDictionariesKeepsTheTextValid) {
    Layout layout(readableDocument());
    ASSERT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 0, false), 0);
    EXPECT_EQ(layout.handler().ClearAllDictionary(), 0);
    EXPECT_TRUE(layout.handler().isWorkTextValid());
}

TEST(ClearAllDictionary, OfEmptyDictionariesKeepsTheTextInvalid) {
    Layout layout(readableDocument());
    EXPECT_EQ(layout.handler().ClearAllDictionary(), 0);
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(ClearAllDictionary, OfATagMakesTheTextInvalid) {
    Layout layout(readableDocument());
    layout.handler().SetTagDictionary("a", "1");
    ASSERT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 0, false), 0);
    EXPECT_EQ(layout.handler().ClearAllDictionary(), 0);
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(ClearAllDictionary, OfAnObjectTagMakesTheTextInvalid) {
    Layout layout(readableDocument());
    layout.handler().SetObjectTagDictionary("box.text", "new", false, false);
    ASSERT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 0, false), 0);
    EXPECT_EQ(layout.handler().ClearAllDictionary(), 0);
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(TagDictionary, GivesAnEmptyTextWhereValuesWouldMakeItTooLong) {
    Layout layout(QByteArray("%a%").repeated(1000));
    const QByteArray value(16000, 'x');
    layout.handler().SetTagDictionary("a", value.constData());
    EXPECT_EQ(layout.handler().ReadXmlApplyTags().size(), 16000001);
    const QByteArray longer(17000, 'x');
    layout.handler().ClearAllDictionary();
    layout.handler().SetTagDictionary("a", longer.constData());
    EXPECT_EQ(layout.handler().ReadXmlApplyTags(), QString());
}

TEST(TagDictionary, GivesAnEmptyTextWhereManyLinesMakeItTooLong) {
    Layout layout(QByteArray("%a%\n").repeated(1000));
    const QByteArray value(17000, 'x');
    layout.handler().SetTagDictionary("a", value.constData());
    EXPECT_EQ(layout.handler().ReadXmlApplyTags(), QString());
}

TEST(TagDictionary, IsNotBlownUpByValuesThatNameOneAnother) {
    Layout layout("%a0%");
    for (int i = 0; i < 40; ++i) {
        const QByteArray key = "a" + QByteArray::number(i);
        const QByteArray next = "%a" + QByteArray::number(i + 1) + "%";
        layout.handler().SetTagDictionary(key.constData(), next.repeated(10).constData());
    }
    EXPECT_EQ(layout.handler().ReadXmlApplyTags(), QString());
}
