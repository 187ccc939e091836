#include "library_limits.h"
#include "render/blank_surface.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"

#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

TEST(BlankSurface, IsOpaqueWhitePremultipliedArgb) {
    const QImage surface = velnor::makeBlankSurface(30, 20);
    EXPECT_EQ(surface.size(), QSize(30, 20));
    EXPECT_EQ(surface.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_TRUE(isAllWhite(surface));
}

TEST(BlankSurface, IsWhiteBeyondTheRowsThatAPainterReaches) {
    EXPECT_TRUE(isAllWhite(velnor::makeBlankSurface(4, 40000)));
}

TEST(BlankSurface, IsWhiteBeyondTheColumnsThatAPainterReaches) {
    EXPECT_TRUE(isAllWhite(velnor::makeBlankSurface(40000, 4)));
}

struct SizeRow : Row {
    int width;
    int height;
};

class NoSurfaceSize : public testing::TestWithParam<SizeRow> {};

TEST_P(NoSurfaceSize, GivesANullImageWithoutAComplaint) {
    const QtMessages messages;
    const SizeRow& row = GetParam();
    EXPECT_FALSE(velnor::isSurfaceSize(row.width, row.height));
    EXPECT_TRUE(velnor::makeBlankSurface(row.width, row.height).isNull());
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(
    BlankSurface, NoSurfaceSize,
    testing::Values(SizeRow{{"WidthNotGiven"}, -1, 100}, SizeRow{{"HeightNotGiven"}, 100, -1},
                    SizeRow{{"WidthOfZero"}, 0, 100}, SizeRow{{"HeightOfZero"}, 100, 0},
                    SizeRow{{"NeitherGiven"}, -1, -1}, SizeRow{{"LowestSizes"}, Lowest, Lowest},
                    SizeRow{{"HighestSizes"}, Highest, Highest},
                    SizeRow{{"HighestWidth"}, Highest, 1}, SizeRow{{"HighestHeight"}, 1, Highest},
                    SizeRow{{"ProductThatWrapsTo32Bits"}, 65536, 65537},
                    SizeRow{{"OneRowBeyondTheLimit"}, 16000, 16001},
                    SizeRow{{"OneDotBeyondTheLimit"}, 256000001, 1}),
    RuleAsName());

class SurfaceSize : public testing::TestWithParam<SizeRow> {};

TEST_P(SurfaceSize, IsAllowed) {
    EXPECT_TRUE(velnor::isSurfaceSize(GetParam().width, GetParam().height));
}

INSTANTIATE_TEST_SUITE_P(BlankSurface, SurfaceSize,
                         testing::Values(SizeRow{{"OneDot"}, 1, 1},
                                         SizeRow{{"OneMetreOfRollAt203Dpi"}, 576, 7992},
                                         SizeRow{{"ExactlyTheLimit"}, 16000, 16000},
                                         SizeRow{{"TheLimitInOneRow"}, 256000000, 1}),
                         RuleAsName());

TEST(BlankSurface, LimitIs256MegapixelsForSurfacesAnd64ForPictures) {
    EXPECT_EQ(velnor::MaximumSurfaceDots, 256000000);
    EXPECT_EQ(velnor::MaximumPictureDots, 64000000);
}

} // namespace
