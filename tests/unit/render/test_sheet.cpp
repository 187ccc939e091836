#include "library_limits.h"
#include "render/sheet.h"
#include "support/peak_memory.h"
#include "support/rows.h"
#include "support/same_picture.h"

#include <limits>

namespace {

using velnor::Margins;
using velnor::Sheet;

constexpr int Highest = std::numeric_limits<int>::max();
constexpr Margins Wanted = {3, 4, 5, 6};
constexpr QRgb Black = 0xff000000;

void blacken(QImage surface) {
    for (int y = 0; y < surface.height(); ++y) {
        auto* dots = reinterpret_cast<QRgb*>(surface.scanLine(y));
        std::fill_n(dots, surface.width(), Black);
    }
}

TEST(Sheet, HasASurfaceOfTheSizeInPremultipliedArgb) {
    const Sheet sheet(30, 20, Wanted);
    EXPECT_EQ(sheet.surface().size(), QSize(30, 20));
    EXPECT_EQ(sheet.surface().format(), QImage::Format_ARGB32_Premultiplied);
}

TEST(Sheet, SurroundsTheSurfaceWithTheMargins) {
    Sheet sheet(30, 20, Wanted);
    sheet.whiten(20);
    blacken(sheet.surface());
    const QImage framed = sheet.framed(20);
    ASSERT_EQ(framed.size(), QSize(38, 30));
    QImage expected(38, 30, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    for (int y = 4; y < 24; ++y) {
        for (int x = 3; x < 33; ++x) {
            expected.setPixel(x, y, Black);
        }
    }
    EXPECT_TRUE(samePicture(framed, expected));
}

TEST(Sheet, CutBelowSomeRowsHasAWhiteMarginWhereOthersWereDrawn) {
    Sheet sheet(30, 20, Wanted);
    sheet.whiten(20);
    blacken(sheet.surface());
    const QImage framed = sheet.framed(10);
    EXPECT_EQ(framed.size(), QSize(38, 20));
    EXPECT_EQ(framed.pixel(3, 13), Black);
    EXPECT_TRUE(isAllWhite(framed.copy(0, 14, 38, 6)));
}

TEST(Sheet, CanBeMadeWhiteAgainAfterItWasDrawnOn) {
    Sheet sheet(30, 20, Wanted);
    blacken(sheet.surface());
    sheet.whiten(20);
    EXPECT_TRUE(isAllWhite(sheet.framed(20)));
}

TEST(Sheet, BecomesWhiteNoFurtherThanItsSurface) {
    Sheet sheet(30, 20, Wanted);
    sheet.whiten(Highest);
    EXPECT_TRUE(isAllWhite(sheet.framed(20)));
}

TEST(Sheet, FramesItsOwnMarginsAndRowsAlone) {
    const Sheet sheet(30, 20, Wanted);
    EXPECT_TRUE(sheet.canFrame(Wanted, 1));
    EXPECT_TRUE(sheet.canFrame(Wanted, 20));
    EXPECT_FALSE(sheet.canFrame(Wanted, 0));
    EXPECT_FALSE(sheet.canFrame(Wanted, 21));
    EXPECT_FALSE(sheet.canFrame(Margins(), 20));
    EXPECT_FALSE(sheet.canFrame({3, 4, 5, 7}, 20));
    EXPECT_FALSE(sheet.canFrame({3, 4, 0, 6}, 20));
    EXPECT_FALSE(sheet.canFrame({3, 0, 5, 6}, 20));
    EXPECT_FALSE(sheet.canFrame({0, 4, 5, 6}, 20));
}

struct NoRoomRow : Row {
    Margins margins;
};

class SheetWithoutRoom : public testing::TestWithParam<NoRoomRow> {};

TEST_P(SheetWithoutRoom, FramesTheSurfaceAlone) {
    Sheet sheet(30, 20, GetParam().margins);
    EXPECT_FALSE(sheet.canFrame(GetParam().margins, 20));
    EXPECT_TRUE(sheet.canFrame(Margins(), 20));
    sheet.whiten(20);
    EXPECT_EQ(sheet.framed(20).size(), QSize(30, 20));
}

INSTANTIATE_TEST_SUITE_P(Sheet, SheetWithoutRoom,
                         testing::Values(NoRoomRow{{"NegativeLeft"}, {-1, 0, 0, 0}},
                                         NoRoomRow{{"NegativeTop"}, {0, -1, 0, 0}},
                                         NoRoomRow{{"NegativeRight"}, {0, 0, -1, 0}},
                                         NoRoomRow{{"NegativeBottom"}, {5, 5, 5, -1}},
                                         NoRoomRow{{"HighestOfAll"},
                                                   {Highest, Highest, Highest, Highest}},
                                         NoRoomRow{{"BeyondTheLimit"}, {0, 0, 0, 10000000}}),
                         RuleAsName());

TEST(Sheet, OfASizeThatNoSurfaceHasIsEmpty) {
    for (const QSize size : {QSize(-1, 100), QSize(100, 0), QSize(16000, 16001)}) {
        Sheet sheet(size.width(), size.height(), Wanted);
        sheet.whiten(10);
        EXPECT_TRUE(sheet.surface().isNull());
        EXPECT_FALSE(sheet.canFrame(Wanted, 1));
    }
}

TEST(Sheet, LivesAsLongAsItsPictures) {
    QImage framed;
    {
        Sheet sheet(300, 2000, Wanted);
        sheet.whiten(2000);
        framed = sheet.framed(2000);
    }
    EXPECT_TRUE(isAllWhite(framed));
}

// Also where the system gives memory in large pages.
TEST(Sheet, TakesMemoryForTheRowsThatAreTouchedAlone) {
    constexpr long TwoLargePages = 4;
    const PeakMemory memory;
    Sheet sheet(4000, 60000, Margins());
    sheet.whiten(100);
    EXPECT_LE(memory.risenMegabytes(), TwoLargePages + 1);
}

} // namespace
