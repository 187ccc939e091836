// How the messages of validation are written into the caller's buffer.
#include "handler/velnorxml.h"

#include "support/canvases.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr char Guard = '#';
constexpr size_t BufferSize = 64;

// All of a buffer: a text, zeros, and bytes that were not touched.
std::string bytes(const std::string& text, size_t zeros) {
    std::string all = text + std::string(zeros, '\0');
    all.resize(BufferSize, Guard);
    return all;
}

CanvasPointer canvasWithFindings() {
    auto canvas = makeCanvas(100, 100);
    addItem<VelnorDrawableElement>(*canvas).id = QStringLiteral("a");
    addItem<VelnorDrawableElement>(*canvas).id = QStringLiteral("b");
    return canvas;
}

constexpr char Both[] = "invalid item id=a; invalid item id=b; ";
constexpr int Length = sizeof Both - 1;

struct SizeRow : Row {
    int size;
    std::string buffer;
};

const SizeRow Sizes[] = {
    {{"TheLowestSizeIsUntouched"}, Lowest, bytes("", 0)},
    {{"ANegativeSizeIsUntouched"}, -1, bytes("", 0)},
    {{"ASizeOfZeroIsUntouched"}, 0, bytes("", 0)},
    {{"ASizeOfOneHoldsOnlyTheZero"}, 1, bytes("", 1)},
    {{"ASizeOfTwoHoldsOneLetter"}, 2, bytes("i", 1)},
    {{"TheFirstMessageMayFillTheBuffer"}, 20, bytes("invalid item id=a; ", 1)},
    {{"TheSecondMessageMayBeCut"}, 24, bytes("invalid item id=a; inva", 1)},
    {{"OneByteLessThanTheLengthCutsTwo"}, Length - 1, bytes({Both, Length - 2}, 1)},
    {{"TheLengthCutsTheLastByte"}, Length, bytes({Both, Length - 1}, 1)},
    {{"OneByteMoreThanTheLengthHoldsAll"}, Length + 1, bytes(Both, 1)},
    {{"TheRestIsZeros"}, Length + 10, bytes(Both, 10)},
};

class MessageBuffer : public testing::TestWithParam<SizeRow> {};

TEST_P(MessageBuffer, IsFilledUpToItsLastByte) {
    std::string buffer(BufferSize, Guard);
    EXPECT_EQ(VelnorXml::CheckIsCorrect(canvasWithFindings().get(), &buffer[0], GetParam().size),
              -1);
    EXPECT_EQ(buffer, GetParam().buffer);
}

INSTANTIATE_TEST_SUITE_P(Validation, MessageBuffer, testing::ValuesIn(Sizes), RuleAsName());

TEST(MessageBuffers, MayBeNull) {
    const auto canvas = canvasWithFindings();
    for (const int size : {Lowest, -1, 0, 1, 100}) {
        EXPECT_EQ(VelnorXml::CheckIsCorrect(canvas.get(), nullptr, size), -1) << size;
        EXPECT_EQ(VelnorXml::CheckIsCorrect(nullptr, nullptr, size), -1) << size;
        EXPECT_EQ(VelnorXml::CheckIsCorrect(makeCanvas(9, 9).get(), nullptr, size), 0) << size;
    }
}

TEST(MessageBuffers, WithoutFindingsHoldOnlyZeros) {
    std::string buffer(BufferSize, Guard);
    EXPECT_EQ(VelnorXml::CheckIsCorrect(makeCanvas(9, 9).get(), &buffer[0], 10), 0);
    EXPECT_EQ(buffer, bytes("", 10));
}

TEST(MessageBuffers, OfANullCanvasAreCutToo) {
    std::string buffer(BufferSize, Guard);
    EXPECT_EQ(VelnorXml::CheckIsCorrect(nullptr, &buffer[0], 7), -1);
    EXPECT_EQ(buffer, bytes("Canvas", 1));
}

TEST(MessageBuffers, HoldUtf8ThatMayBeCutInsideACharacter) {
    const auto canvas = makeCanvas(100, 100);
    addItem<VelnorDrawableElement>(*canvas).id = QString::fromUtf8("\xE2\x82\xAC");
    std::string buffer(BufferSize, Guard);
    VelnorXml::CheckIsCorrect(canvas.get(), &buffer[0], 40);
    EXPECT_EQ(buffer, bytes("invalid item id=\xE2\x82\xAC; ", 40 - 21));
    buffer.assign(BufferSize, Guard);
    VelnorXml::CheckIsCorrect(canvas.get(), &buffer[0], 19);
    EXPECT_EQ(buffer, bytes("invalid item id=\xE2\x82", 1));
}

TEST(Messages, HoldTextsThatLookLikePlaceholdersAsTheyAre) {
    const auto canvas = makeCanvas(100, 100);
    auto& image = addItem<VelnorDrawableImage>(*canvas);
    image.id = QStringLiteral("%2%1%3");
    image.filepath = QStringLiteral("/no/such/%1");
    std::string buffer(BufferSize, '\0');
    VelnorXml::CheckIsCorrect(canvas.get(), &buffer[0], BufferSize);
    EXPECT_STREQ(buffer.c_str(), "Image item id=%2%1%3: invalid filepath(/no/such/%1); ");
}

class WriteInfo : public testing::Test {
protected:
    void write(const QString& text) { VelnorXml::writeInfo(&buffer[0], size, &remaining, text); }

    int size = 10;
    int remaining = 10;
    std::string buffer = std::string(BufferSize, Guard);
};

TEST_F(WriteInfo, WritesTheTextAndClearsTheFreeRest) {
    write(QStringLiteral("abcde"));
    EXPECT_EQ(buffer, bytes("abcde", 5));
    EXPECT_EQ(remaining, 5);
}

TEST_F(WriteInfo, FillsTheRestWithoutATerminatingZero) {
    write(QStringLiteral("abcde"));
    write(QStringLiteral("fghijk"));
    EXPECT_EQ(buffer, bytes("abcdefghij", 0));
    EXPECT_EQ(remaining, 0);
}

TEST_F(WriteInfo, FillsTheRestExactly) {
    write(QStringLiteral("abcdefghij"));
    EXPECT_EQ(buffer, bytes("abcdefghij", 0));
    EXPECT_EQ(remaining, 0);
}

TEST_F(WriteInfo, WritesNothingOnceTheBufferIsFull) {
    for (const int none : {0, -1, Lowest}) {
        remaining = none;
        write(QStringLiteral("abc"));
        EXPECT_EQ(buffer, bytes("", 0));
        EXPECT_EQ(remaining, none);
    }
}

TEST_F(WriteInfo, OfAnEmptyTextOnlyClearsTheFreeRest) {
    write(QStringLiteral("ab"));
    buffer[9] = Guard;
    write(QString());
    EXPECT_EQ(buffer, bytes("ab", 8));
    EXPECT_EQ(remaining, 8);
}

TEST_F(WriteInfo, CountsBytesOfUtf8) {
    write(QString::fromUtf8("\xE2\x82\xAC"));
    EXPECT_EQ(buffer, bytes("\xE2\x82\xAC", 7));
    EXPECT_EQ(remaining, 7);
}

TEST_F(WriteInfo, EndsATextAtItsFirstZero) {
    write(QString::fromLatin1("ab\0cd", 5));
    EXPECT_EQ(buffer, bytes("ab", 8));
    EXPECT_EQ(remaining, 8);
}

TEST_F(WriteInfo, NeedsNoBufferWhenNothingIsFree) {
    remaining = 0;
    VelnorXml::writeInfo(nullptr, 0, &remaining, QStringLiteral("abc"));
    EXPECT_EQ(remaining, 0);
}

} // namespace
