#include "render/icon_file.h"
#include "render/picture_file.h"
#include "support/picture_files.h"
#include "support/qt_messages.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QtEndian>

#include <utility>
#include <vector>

namespace {

// Where an icon of one bitmap holds what it is read by.
enum IconField {
    PictureCount = 4,
    Sides = 6,
    Depth = 12,
    PictureSize = 14,
    PictureOffset = 18,
    Content = 22,
    BitmapWidth = 26,
    BitmapHeight = 30, // twice, since the mask counts
    BitmapDepth = 36,
    ColoursUsed = 54
};

using Changes = std::vector<std::pair<IconField, QByteArray>>;

QByteArray littleEndian(quint32 number) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray changed(QByteArray icon, const Changes& changes) {
    for (const auto& [field, bytes] : changes) {
        icon.replace(field, bytes.size(), bytes);
    }
    return icon;
}

QImage bitmapIn(QByteArray icon) {
    QBuffer file(&icon);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return velnor::bitmapInIcon(file);
}

QByteArray pngIn(QByteArray icon) {
    QBuffer file(&icon);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return velnor::pngInIcon(file);
}

struct DepthRow : Row {
    char depth;
    QByteArray rows; // the lower one first
};

class IconDepth : public testing::TestWithParam<DepthRow> {};

TEST_P(IconDepth, HasTheseDots) {
    const QByteArray table("\0\0\xFF\0\xFF\0\0\0", 8); // red and blue
    const QByteArray mask("\x80\0\0\0\0\0\0\0", 8);
    const bool isIndexed = GetParam().depth <= 8;
    const QByteArray bitmap = QByteArray(40, '\0') + (isIndexed ? table : "") + GetParam().rows;
    const Changes changes = {
        {Sides, "\3\2"}, {BitmapDepth, QByteArray(1, GetParam().depth)}, {ColoursUsed, "\2"}};
    const QImage picture = bitmapIn(changed(iconOf(bitmap + mask), changes));
    ASSERT_EQ(picture.size(), QSize(3, 2));
    const QRgb red = qRgb(255, 0, 0);
    const QRgb blue = qRgb(0, 0, 255);
    const QRgb expected[2][3] = {{red, blue, blue}, {0, red, blue}};
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            EXPECT_EQ(picture.pixel(x, y), expected[y][x]) << x << ", " << y;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    IconFile, IconDepth,
    testing::Values(DepthRow{{"Of1Bit"}, 1, QByteArrayLiteral("\xA0\0\0\0\x60\0\0\0")},
                    DepthRow{{"Of4Bits"}, 4, QByteArrayLiteral("\x10\x10\0\0\x01\x10\0\0")},
                    DepthRow{{"Of8Bits"}, 8, QByteArrayLiteral("\1\0\1\0\0\1\1\0")},
                    DepthRow{{"Of24Bits"},
                             24,
                             QByteArrayLiteral("\xFF\0\0\0\0\xFF\xFF\0\0\0\0\0"
                                               "\0\0\xFF\xFF\0\0\xFF\0\0\0\0\0")},
                    DepthRow{{"Of32Bits"},
                             32,
                             QByteArrayLiteral("\0\0\0\0\0\0\xFF\xFF\xFF\0\0\xFF"
                                               "\0\0\xFF\xFF\xFF\0\0\xFF\xFF\0\0\xFF")}),
    RuleAsName());

struct SizeRow : Row {
    Changes changes; // of an icon of 20 x 10 dots and 32 bits
    QSize size;      // empty where it is not read
};

class IconSize : public testing::TestWithParam<SizeRow> {};

TEST_P(IconSize, IsThis) {
    const QtMessages messages;
    const QByteArray icon = velnor::encodePicture(colourfulPicture(20, 10), "ico");
    const QByteArray rows(300000, '\0');
    EXPECT_EQ(bitmapIn(changed(icon + rows, GetParam().changes)).size(), GetParam().size);
    EXPECT_EQ(messages.heard(), "");
}

const QByteArray None("\0\0", 2);
const QByteArray Of4Bits("\4\0", 2);
const QSize Unread(0, 0);

INSTANTIATE_TEST_SUITE_P(
    IconFile, IconSize,
    testing::Values(
        SizeRow{{"OfAnIconAsItIsWritten"}, {}, {20, 10}},
        SizeRow{{"OfManyPicturesIsThatOfTheFirst"}, {{PictureCount, "\xFF\xFF"}}, {20, 10}},
        SizeRow{{"IsThatOfTheDirectory"}, {{BitmapWidth, littleEndian(20000)}}, {20, 10}},
        SizeRow{{"WithoutOneInTheDirectoryIsThatOfTheBitmap"}, {{Sides, None}}, {20, 10}},
        SizeRow{
            {"IsAtMost256"},
            {{Sides, None}, {BitmapWidth, littleEndian(256)}, {BitmapHeight, littleEndian(512)}},
            {256, 256}},
        SizeRow{{"OfALongerRowIsNone"}, {{Sides, None}, {BitmapWidth, littleEndian(257)}}, Unread},
        SizeRow{
            {"OfAHigherBitmapIsNone"}, {{Sides, None}, {BitmapHeight, littleEndian(514)}}, Unread},
        SizeRow{{"OfTheLargestNumbersIsNone"},
                {{Sides, None},
                 {BitmapWidth, littleEndian(0x7FFFFFFF)},
                 {BitmapHeight, littleEndian(0x7FFFFFFF)}},
                Unread},
        SizeRow{{"OfANegativeWidthIsNone"},
                {{Sides, None}, {BitmapWidth, littleEndian(0xFFFFFFF0)}},
                Unread},
        SizeRow{{"OfANegativeHeightIsNone"},
                {{Sides, None}, {BitmapHeight, littleEndian(0xFFFFFFF0)}},
                Unread},
        SizeRow{{"WhereTheDirectoryAloneSaysTheDepth"}, {{BitmapDepth, None}}, {20, 10}},
        SizeRow{{"OfNoDepthIsNone"}, {{BitmapDepth, None}, {Depth, None}}, Unread},
        SizeRow{{"OfADepthOf16IsNone"}, {{BitmapDepth, QByteArray("\x10\0", 2)}}, Unread},
        SizeRow{{"OfAHugeDepthIsNone"}, {{BitmapDepth, "\xFF\xFF"}}, Unread},
        SizeRow{{"OfAsManyColoursAsAByteCounts"},
                {{BitmapDepth, Of4Bits}, {ColoursUsed, littleEndian(256)}},
                {20, 10}},
        SizeRow{{"OfMoreColoursIsNone"},
                {{BitmapDepth, Of4Bits}, {ColoursUsed, littleEndian(257)}},
                Unread},
        SizeRow{{"OfANegativeNumberOfColoursIsNone"},
                {{BitmapDepth, Of4Bits}, {ColoursUsed, littleEndian(0x80000000)}},
                Unread},
        SizeRow{{"OfColoursThatAreNotUsed"}, {{ColoursUsed, littleEndian(0x80000000)}}, {20, 10}},
        SizeRow{{"OfMoreBytesThanThereAre"}, {{PictureSize, littleEndian(~0U)}}, {20, 10}},
        SizeRow{{"BehindTheFileIsNone"}, {{PictureOffset, littleEndian(1000000)}}, Unread},
        SizeRow{{"FarBehindTheFileIsNone"}, {{PictureOffset, littleEndian(~0U)}}, Unread}),
    RuleAsName());

TEST(IconFile, ThatEndsTooEarlyHasNoBitmap) {
    const Changes indexed = {{Sides, "\3\2"}, {BitmapDepth, "\1"}};
    const QByteArray icon = changed(iconOf(QByteArray(40 + 8 + 8 + 8, '\0')), indexed);
    EXPECT_EQ(bitmapIn(icon).size(), QSize(3, 2));
    for (int length = 0; length < icon.size(); ++length) {
        EXPECT_TRUE(bitmapIn(icon.left(length)).isNull()) << length;
    }
}

TEST(IconFile, Of32BitsNeedsNoMask) {
    const QByteArray icon = velnor::encodePicture(colourfulPicture(20, 10), "ico");
    const int mask = 10 * 4;
    EXPECT_EQ(bitmapIn(icon.left(icon.size() - mask)), bitmapIn(icon));
    EXPECT_EQ(bitmapIn(icon.left(icon.size() - mask) + QByteArray(mask, '\xFF')), bitmapIn(icon));
    EXPECT_TRUE(bitmapIn(icon.left(icon.size() - mask - 1)).isNull());
}

TEST(IconFile, HasWhiteForColoursBeyondItsTable) {
    const Changes oneColour = {{Sides, "\1\1"}, {BitmapDepth, "\x8"}, {ColoursUsed, "\1"}};
    const QByteArray bitmap =
        QByteArray(40, '\0') + QByteArray("\0\0\xFF\0", 4) + QByteArray("\xFF\0\0\0\0\0\0\0", 8);
    EXPECT_EQ(bitmapIn(changed(iconOf(bitmap), oneColour)).pixel(0, 0), qRgb(255, 255, 255));
}

TEST(IconFile, MayHoldAPng) {
    const QByteArray picture = velnor::encodePicture(colourfulPicture(20, 10), "png");
    EXPECT_EQ(pngIn(iconOf(picture)), picture);
    EXPECT_EQ(pngIn(iconOf(picture) + "another picture"), picture);
    EXPECT_EQ(pngIn(velnor::encodePicture(colourfulPicture(20, 10), "ico")), "");
    EXPECT_EQ(pngIn(""), "");
}

TEST(IconFile, HoldsAPngUpToItsEnd) {
    const QtMessages messages;
    const QByteArray picture = velnor::encodePicture(colourfulPicture(20, 10), "png");
    const QByteArray icon = iconOf(picture);
    EXPECT_EQ(pngIn(icon.left(100)), picture.left(100 - Content));
    EXPECT_EQ(pngIn(icon.left(Content)), "");
    EXPECT_EQ(pngIn(changed(icon, {{PictureSize, littleEndian(~0U)}})), picture);
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
