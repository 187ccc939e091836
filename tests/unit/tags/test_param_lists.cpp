// Listing a parameter file into the two buffers of the caller.
#include "support/layouts.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr char Guard = '#';
constexpr size_t BufferSize = 40;

// Both lists have 8 bytes.
constexpr char ThreePairs[] = "<VelnorParams><VelnorParam id='k'><a>u</a><b>vv</b></VelnorParam>"
                              "<VelnorParam id='x'><y/></VelnorParam></VelnorParams>";
const std::string Keys = "k.a\x1ek.b\x1ex.y";
const std::string Values = "u\x1evv\x1e";

// All of a buffer: a text, zeros, and bytes that were not touched.
std::string bytes(const std::string& text, size_t zeros = 0) {
    std::string all = text + std::string(zeros, '\0');
    all.resize(BufferSize, Guard);
    return all;
}

struct Lists {
    int result;
    std::string keys = bytes("");
    std::string values = bytes("");
};

Lists listed(const QByteArray& file, int keysSize, int valuesSize) {
    Layout layout(canvasDocument(""));
    const QByteArray path = layout.folder().write(QStringLiteral("p.xml"), file).toUtf8();
    Lists lists;
    lists.result = layout.handler().ParseParamsGetTagList(path.constData(), &lists.keys[0],
                                                          keysSize, &lists.values[0], valuesSize);
    EXPECT_TRUE(layout.handler().objectTags().isEmpty());
    return lists;
}

struct BufferRow : Row {
    int keysSize;
    int valuesSize;
    std::string keys;
    std::string values;
};

std::string withZeroAt(std::string buffer, size_t position) {
    buffer[position] = '\0';
    return buffer;
}

const BufferRow Buffers[] = {
    {{"LargeBuffersHoldTheListsAndZeros"}, 20, 10, bytes(Keys, 9), bytes(Values, 5)},
    {{"BuffersOfOneByteMoreHoldTheListsAndOneZero"}, 12, 6, bytes(Keys, 1), bytes(Values, 1)},
    {{"AKeyBufferOfTheLengthHasNoZero"}, 11, 20, bytes(Keys), bytes(Values, 15)},
    {{"AShortKeyBufferHasNoZero"}, 5, 20, bytes(Keys.substr(0, 5)), bytes(Values, 15)},
    {{"AKeyBufferOfOneByteHasNoZero"}, 1, 20, bytes("k"), bytes(Values, 15)},
    {{"AKeyBufferOfNoSizeIsUntouched"}, 0, 20, bytes(""), bytes(Values, 15)},
    {{"AKeyBufferOfANegativeSizeIsUntouched"}, -1, 20, bytes(""), bytes(Values, 15)},
    {{"AKeyBufferOfTheLowestSizeIsUntouched"}, Lowest, 20, bytes(""), bytes(Values, 15)},
    {{"AValueBufferOfTheLengthLosesItsLastByte"},
     20,
     5,
     bytes(Keys, 9),
     bytes(Values.substr(0, 4), 1)},
    {{"AShortValueBufferEndsWithAZero"}, 20, 3, bytes(Keys, 9), bytes("u\x1e", 1)},
    {{"AValueBufferOfOneByteHoldsTheZero"}, 20, 1, bytes(Keys, 9), bytes("", 1)},
    {{"AValueBufferOfNoSizeIsUntouched"}, 20, 0, bytes(Keys, 9), bytes("")},
    {{"AValueBufferOfANegativeSizeIsUntouched"}, 20, -1, bytes(Keys, 9), bytes("")},
    {{"AValueBufferOfTheLowestSizeIsUntouched"}, 20, Lowest, bytes(Keys, 9), bytes("")},
    {{"TheZeroOfAFullKeyBufferGoesBehindAShorterValueBuffer"},
     9,
     4,
     bytes(Keys.substr(0, 9)),
     withZeroAt(bytes("u\x1ev", 1), 8)},
    {{"TheZeroOfAFullKeyBufferGoesIntoAValueBufferOfNoSize"},
     9,
     0,
     bytes(Keys.substr(0, 9)),
     withZeroAt(bytes(""), 8)},
    {{"TheZeroOfAFullKeyBufferIsOverwrittenByTheValues"}, 2, 6, bytes("k."), bytes(Values, 1)},
};

class ParamBuffers : public testing::TestWithParam<BufferRow> {};

TEST_P(ParamBuffers, AreFilledAsTheirSizesSay) {
    const Lists lists = listed(ThreePairs, GetParam().keysSize, GetParam().valuesSize);
    EXPECT_EQ(lists.result, 0);
    EXPECT_EQ(lists.keys, GetParam().keys);
    EXPECT_EQ(lists.values, GetParam().values);
}

INSTANTIATE_TEST_SUITE_P(ParamLists, ParamBuffers, testing::ValuesIn(Buffers), RuleAsName());

TEST(ParamLists, OfOnePairHaveNoSeparator) {
    const Lists lists =
        listed("<VelnorParams><VelnorParam id='a'><b>1</b></VelnorParam></VelnorParams>", 10, 10);
    EXPECT_EQ(lists.keys, bytes("a.b", 7));
    EXPECT_EQ(lists.values, bytes("1", 9));
}

TEST(ParamLists, OfNoPairsAreEmpty) {
    const Lists lists = listed("<VelnorParams><VelnorParam id='a'/></VelnorParams>", 10, 10);
    EXPECT_EQ(lists.result, 0);
    EXPECT_EQ(lists.keys, bytes("", 10));
    EXPECT_EQ(lists.values, bytes("", 10));
}

TEST(ParamLists, OfAFileThatCannotBeReadAreEmptyAndFail) {
    for (const char* file : {"", "<VelnorParam/>", "<VelnorParams/>"}) {
        const Lists lists = listed(file, 10, 7);
        EXPECT_EQ(lists.result, 1) << file;
        EXPECT_EQ(lists.keys, bytes("", 10)) << file;
        EXPECT_EQ(lists.values, bytes("", 7)) << file;
    }
}

TEST(ParamLists, AreUtf8ThatMayBeCutInsideACharacter) {
    const Lists lists = listed("<VelnorParams><VelnorParam id='\xC3\xB6'>"
                               "<a>\xE2\x82\xAC</a></VelnorParam></VelnorParams>",
                               10, 3);
    EXPECT_EQ(lists.keys, bytes("\xC3\xB6.a", 6));
    EXPECT_EQ(lists.values, bytes("\xE2\x82", 1));
}

TEST(ParamLists, MayBeAskedForOneByOne) {
    Layout layout(canvasDocument(""));
    const QByteArray path = layout.folder().write(QStringLiteral("p.xml"), ThreePairs).toUtf8();
    std::string buffer = bytes("");
    EXPECT_EQ(layout.handler().ParseParamsGetTagList(path.constData(), &buffer[0], 20, nullptr, 20),
              0);
    EXPECT_EQ(buffer, bytes(Keys, 9));
    buffer = bytes("");
    EXPECT_EQ(layout.handler().ParseParamsGetTagList(path.constData(), nullptr, 5, &buffer[0], 20),
              0);
    EXPECT_EQ(buffer, bytes(Values, 15));
    EXPECT_EQ(layout.handler().ParseParamsGetTagList(path.constData(), nullptr, 20, nullptr, 20),
              0);
}

TEST(ParamLists, IntoAFullKeyBufferNeedNoValueBuffer) {
    Layout layout(canvasDocument(""));
    const QByteArray path = layout.folder().write(QStringLiteral("p.xml"), ThreePairs).toUtf8();
    std::string buffer = bytes("");
    EXPECT_EQ(layout.handler().ParseParamsGetTagList(path.constData(), &buffer[0], 5, nullptr, 0),
              0);
    EXPECT_EQ(buffer, bytes(Keys.substr(0, 5)));
}

} // namespace
