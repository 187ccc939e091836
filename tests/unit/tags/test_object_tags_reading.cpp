// Reading object tags into buffers, and the document text that is kept between reads.
#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <string>

namespace {

constexpr int BufferSize = 16;

struct BufferRow : Row {
    const char* text; // in the document
    int size;
    std::string buffer; // all of it; it holds '#' before the call
};

class Buffer : public testing::TestWithParam<BufferRow> {};

std::string bytes(const std::string& text, int zeros, int untouched) {
    return text + std::string(static_cast<size_t>(zeros), '\0') +
           std::string(static_cast<size_t>(untouched), '#');
}

const BufferRow Buffers[] = {
    {"AShortTextIsFollowedByZeros", "abc", 10, bytes("abc", 7, 6)},
    {"ATextOfOneByteLessThanTheSizeFits", "abc", 4, bytes("abc", 1, 12)},
    {"ATextOfTheSizeIsCut", "abcd", 4, bytes("abc", 1, 12)},
    {"ALongTextIsCut", "0123456789", 4, bytes("012", 1, 12)},
    {"AnEmptyTextIsAllZeros", "", 5, bytes("", 5, 11)},
    {"ASizeOfOneHoldsOnlyTheZero", "abc", 1, bytes("", 1, 15)},
    {"ASizeOfZeroIsUntouched", "abc", 0, bytes("", 0, 16)},
    {"ANegativeSizeIsUntouched", "abc", -1, bytes("", 0, 16)},
    {"TheLowestSizeIsUntouched", "abc", -2147483647 - 1, bytes("", 0, 16)},
    {"ATextIsUtf8", "\xE2\x82\xAC", 5, bytes("\xE2\x82\xAC", 2, 11)},
    {"ATextMayBeCutInsideACharacter", "a\xE2\x82\xAC", 4, bytes("a\xE2\x82", 1, 12)},
};

QByteArray boxDocument(const QByteArray& text) {
    return canvasDocument(itemElement("text", "<text link=\"l\">" + text + "</text>", "box"));
}

// The text that a read gives, or "failed".
QString readText(VelnorXml& handler, const char* key = "box.text", bool link = false) {
    char value[100] = "";
    return handler.GetObjectTagDictionary(key, value, sizeof value, link) == 0
               ? QString::fromUtf8(value)
               : QStringLiteral("failed");
}

} // namespace

TEST_P(Buffer, IsFilledAndEndsWithAZero) {
    Layout layout(boxDocument(GetParam().text));
    for (const bool link : {false, true}) {
        std::string buffer(BufferSize, '#');
        EXPECT_EQ(layout.handler().GetObjectTagDictionary(link ? "box.l" : "box.text", &buffer[0],
                                                          GetParam().size, link),
                  0);
        EXPECT_EQ(buffer, GetParam().buffer);
    }
}

INSTANTIATE_TEST_SUITE_P(ObjectTags, Buffer, testing::ValuesIn(Buffers), RuleAsName());

TEST(ObjectTagReading, WithoutABufferOnlyTellsWhetherThePropertyExists) {
    Layout layout(boxDocument("abc"));
    EXPECT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 0, false), 0);
    EXPECT_EQ(layout.handler().GetObjectTagDictionary("box.text", nullptr, 100, false), 0);
    EXPECT_EQ(layout.handler().GetObjectTagDictionary("box.nothing", nullptr, 100, false), 1);
}

TEST(ObjectTagReading, LeavesTheBufferUntouchedOnFailure) {
    Layout layout(boxDocument("abc"));
    for (const char* key : {"box", "", "box.text.x", "box.", ".text", "bag.text", "box.nothing"}) {
        std::string buffer(BufferSize, '#');
        EXPECT_EQ(layout.handler().GetObjectTagDictionary(key, &buffer[0], BufferSize, false), 1)
            << key;
        EXPECT_EQ(buffer, std::string(BufferSize, '#')) << key;
    }
}

TEST(ObjectTagReading, FailsForANullKey) {
    Layout layout(boxDocument("abc"));
    EXPECT_EQ(layout.handler().GetObjectTagDictionary(nullptr, nullptr, 0, false), 1);
}

TEST(ObjectTagReading, FailsForAMissingDocument) {
    Layout layout(boxDocument("abc"));
    layout.remove();
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("failed"));
    EXPECT_FALSE(layout.handler().isWorkTextValid());
}

TEST(ObjectTagReading, ReadsKeysAsLatin1) {
    Layout layout(canvasDocument(itemElement("text", element("text", "abc"), "\xC3\xB6")));
    EXPECT_EQ(readText(layout.handler(), "\xF6.text"), QStringLiteral("abc"));
    EXPECT_EQ(readText(layout.handler(), "\xC3\xB6.text"), QStringLiteral("failed"));
}

TEST(ObjectTagReading, ReadsTheCanvas) {
    Layout layout(canvasDocument("<dpi>203</dpi>"));
    EXPECT_EQ(readText(layout.handler(), "page.dpi"), QStringLiteral("203"));
}

TEST(ObjectTagReading, AppliesTagsFirst) {
    Layout layout(boxDocument("%v%"));
    layout.handler().SetTagDictionary("v", "abc");
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("abc"));
}

TEST(ObjectTagReading, GivesTheResolvedKeyOfALink) {
    Layout layout(boxDocument("abc"));
    QString resolvedKey;
    EXPECT_EQ(
        layout.handler().GetObjectTagDictionaryGeneric("box.l", nullptr, 0, true, resolvedKey), 0);
    EXPECT_EQ(resolvedKey, QStringLiteral("box.text"));
    EXPECT_EQ(
        layout.handler().GetObjectTagDictionaryGeneric("box.text", nullptr, 0, false, resolvedKey),
        0);
    EXPECT_EQ(resolvedKey, QString());
}

TEST(ObjectTagReading, KeepsTheTextOfTheDocumentUntilADictionaryChanges) {
    Layout layout(boxDocument("one"));
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("one"));
    EXPECT_TRUE(layout.handler().isWorkTextValid());
    layout.rewrite(boxDocument("two"));
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("one"));
    layout.handler().SetObjectTagDictionary("bag.text", "x", false, false);
    EXPECT_FALSE(layout.handler().isWorkTextValid());
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("two"));
    EXPECT_TRUE(layout.handler().isWorkTextValid());
}

TEST(ObjectTagReading, SeesTheDocumentWhenItAppears) {
    Layout layout(boxDocument("one"));
    layout.remove();
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("failed"));
    layout.rewrite(boxDocument("one"));
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("one"));
}

TEST(ObjectTagReading, ReadsAgainAfterABrokenDocument) {
    Layout layout("<broken");
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("failed"));
    EXPECT_FALSE(layout.handler().isWorkTextValid());
    layout.rewrite(boxDocument("one"));
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("one"));
}

TEST(ObjectTagReading, KeepsTheTextForUnknownObjectsToo) {
    Layout layout(boxDocument("one"));
    EXPECT_EQ(readText(layout.handler(), "bag.text"), QStringLiteral("failed"));
    EXPECT_TRUE(layout.handler().isWorkTextValid());
}

TEST(ObjectTagReading, IsNotDisturbedByAKeyThatIsRefused) {
    Layout layout(boxDocument("one"));
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("one"));
    EXPECT_EQ(layout.handler().SetObjectTagDictionary("a.b.c", "x", false, false), 1);
    EXPECT_TRUE(layout.handler().isWorkTextValid());
}

TEST(ObjectTagReading, StartsAnewAfterEveryLinkThatIsSet) {
    for (const char* link : {"box.l", "box.nowhere"}) {
        for (const bool keepUnresolved : {false, true}) {
            Layout layout(boxDocument("one"));
            layout.handler().SetObjectTagDictionary(link, "x", true, keepUnresolved);
            EXPECT_FALSE(layout.handler().isWorkTextValid());
        }
    }
}

TEST(ObjectTagReading, FailsForPropertiesThatHoldElements) {
    Layout layout(boxDocument("a<b>c</b>"));
    layout.handler().SetObjectTagDictionary("box.text", "new", false, false);
    EXPECT_EQ(readText(layout.handler()), QStringLiteral("failed"));
}
