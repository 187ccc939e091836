#include "api/wide_text.h"

#include "handler/velnorxml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

using testing::ElementsAre;
using velnor::utf8FromWide;

namespace {

constexpr unsigned short Untouched = 0xa5a5;
constexpr char Ticket[] = "\xf0\x9f\x8e\xab"; // U+1F3AB, a surrogate pair in UTF-16

// The first units of a larger buffer after a text was written into `n` of them.
std::array<unsigned short, 8> written(const char* text, int n) {
    std::array<unsigned short, 8> buffer{};
    buffer.fill(Untouched);
    VelnorXml::FromtUtf8ToUtf16Buffer(text, buffer.data(), n);
    return buffer;
}

const unsigned short* unitsOf(const char16_t* text) {
    return reinterpret_cast<const unsigned short*>(text);
}

TEST(FromtUtf8ToUtf16Buffer, OneUnitReceivesTheZeroAlone) {
    EXPECT_EQ(written("abc", 1)[0], 0);
    EXPECT_EQ(written("abc", 1)[1], Untouched);
    EXPECT_EQ(written("", 1)[0], 0);
}

TEST(FromtUtf8ToUtf16Buffer, ATextOfExactlyTheSizeLosesItsLastUnit) {
    EXPECT_THAT(written("abc", 3),
                ElementsAre('a', 'b', 0, Untouched, Untouched, Untouched, Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, ATextWithRoomForTheZeroIsWhole) {
    EXPECT_THAT(written("abc", 4),
                ElementsAre('a', 'b', 'c', 0, Untouched, Untouched, Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, NothingBehindTheZeroIsWritten) {
    EXPECT_THAT(written("a", 8), ElementsAre('a', 0, Untouched, Untouched, Untouched, Untouched,
                                             Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, ALongerTextIsCut) {
    EXPECT_THAT(written("abcdefghijkl", 3),
                ElementsAre('a', 'b', 0, Untouched, Untouched, Untouched, Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, ACharacterOutsideTheBasicPlaneTakesTwoUnits) {
    EXPECT_THAT(written(Ticket, 3), ElementsAre(0xd83c, 0xdfab, 0, Untouched, Untouched, Untouched,
                                                Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, TheCutMayFallBetweenSurrogates) {
    EXPECT_THAT(written(Ticket, 2), ElementsAre(0xd83c, 0, Untouched, Untouched, Untouched,
                                                Untouched, Untouched, Untouched));
}

TEST(FromtUtf8ToUtf16Buffer, AnEmptyTextWritesTheZeroAlone) {
    EXPECT_THAT(written("", 8), ElementsAre(0, Untouched, Untouched, Untouched, Untouched,
                                            Untouched, Untouched, Untouched));
}

TEST(Utf8FromWide, ANegativeLengthReadsUpToTheZero) {
    EXPECT_EQ(utf8FromWide(unitsOf(u"t\u00fcr"), -1), QByteArray("t\xc3\xbcr"));
    EXPECT_EQ(utf8FromWide(unitsOf(u"abc"), -7), QByteArray("abc"));
    EXPECT_EQ(utf8FromWide(unitsOf(u""), -1), QByteArray(""));
}

TEST(Utf8FromWide, ALengthEndsTheText) {
    EXPECT_EQ(utf8FromWide(unitsOf(u"abcdef"), 3), QByteArray("abc"));
    EXPECT_EQ(utf8FromWide(unitsOf(u"abc"), 3), QByteArray("abc"));
    EXPECT_EQ(utf8FromWide(unitsOf(u"abc"), 0), QByteArray(""));
}

TEST(Utf8FromWide, ALengthReachesPastAZero) {
    EXPECT_EQ(utf8FromWide(unitsOf(u"a\0b"), 3), QByteArray("a\0b", 3));
}

TEST(Utf8FromWide, SurrogatePairsBecomeOneCharacter) {
    EXPECT_EQ(utf8FromWide(unitsOf(u"\U0001f3ab"), -1), QByteArray(Ticket));
    EXPECT_EQ(utf8FromWide(unitsOf(u"\U0001f3ab!"), 2), QByteArray(Ticket));
}

TEST(Utf8FromWide, ANullTextIsAnEmptyOneOfAnyLength) {
    for (const int length : {-1, 0, 5}) {
        const QByteArray text = utf8FromWide(nullptr, length);
        EXPECT_EQ(text.size(), 0);
        EXPECT_STREQ(text.constData(), "");
    }
}

TEST(ScratchFor, EachUnitHasTwoZeroBytes) {
    EXPECT_EQ(velnor::scratchFor(1), QByteArray(2, '\0'));
    EXPECT_EQ(velnor::scratchFor(5), QByteArray(10, '\0'));
}

TEST(ScratchFor, TheLargestSizeNeitherOverflowsNorTakesGigabytes) {
    const int size = velnor::scratchFor(std::numeric_limits<int>::max()).size();
    EXPECT_GE(size, 1024 * 1024);
    EXPECT_LE(size, 256 * 1024 * 1024);
}

} // namespace
