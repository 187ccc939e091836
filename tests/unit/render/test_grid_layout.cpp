#include "render/velnorimage.h"
#include "support/canvases.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;
using velnor::AbsoluteLength;
using velnor::AutoLength;
using velnor::ProportionalLength;

namespace {

std::vector<int> sizesOf(const VelnorRowColumn* entries, int count) {
    std::vector<int> sizes;
    for (int i = 0; i < count; ++i) {
        sizes.push_back(entries[i].size);
    }
    return sizes;
}

std::vector<int> offsetsOf(const VelnorRowColumn* entries, int count) {
    std::vector<int> offsets;
    for (int i = 0; i < count; ++i) {
        offsets.push_back(entries[i].offset);
    }
    return offsets;
}

std::vector<int> rowSizes(const VelnorDrawableCanvas& canvas) {
    return sizesOf(canvas.rows.get(), canvas.rowCount);
}

std::vector<int> columnSizes(const VelnorDrawableCanvas& canvas) {
    return sizesOf(canvas.columns.get(), canvas.columnCount);
}

std::vector<int> rowOffsets(const VelnorDrawableCanvas& canvas) {
    return offsetsOf(canvas.rows.get(), canvas.rowCount);
}

std::vector<int> columnOffsets(const VelnorDrawableCanvas& canvas) {
    return offsetsOf(canvas.columns.get(), canvas.columnCount);
}

TEST(ProportionalEntries, ShareWhatTheOthersLeave) {
    const auto canvas = makeCanvas(400, 400);
    setRows(*canvas, {{AbsoluteLength, 100}, {ProportionalLength, 1}, {ProportionalLength, 3}});
    setColumns(*canvas, {{ProportionalLength, 1}, {AbsoluteLength, 100}, {ProportionalLength, 3}});
    EXPECT_EQ(VelnorImage::FixCanvasRow(canvas.get()), 0);
    EXPECT_EQ(VelnorImage::FixCanvasColumn(canvas.get()), 0);
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(100, 75, 225));
    EXPECT_THAT(rowOffsets(*canvas), ElementsAre(0, 100, 175));
    EXPECT_THAT(columnSizes(*canvas), ElementsAre(75, 100, 225));
    EXPECT_THAT(columnOffsets(*canvas), ElementsAre(0, 75, 175));
}

TEST(ProportionalEntries, DependOnTheRatioOfTheirWeightsAlone) {
    const auto canvas = makeCanvas(300, 301);
    setRows(*canvas, {{ProportionalLength, 3}, {ProportionalLength, 3}});
    setColumns(*canvas, {{ProportionalLength, 7}, {ProportionalLength, 7}});
    VelnorImage::FixCanvasRow(canvas.get());
    VelnorImage::FixCanvasColumn(canvas.get());
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(151, 151)); // each half rounded by itself
    EXPECT_THAT(columnSizes(*canvas), ElementsAre(150, 150));
}

TEST(ProportionalEntries, AreRoundedEachByItself) {
    const auto canvas = makeCanvas(100, 100);
    setRows(*canvas, {{ProportionalLength, 1}, {ProportionalLength, 1}, {ProportionalLength, 1}});
    VelnorImage::FixCanvasRow(canvas.get());
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(33, 33, 33));
    EXPECT_THAT(rowOffsets(*canvas), ElementsAre(0, 33, 66));
}

TEST(ProportionalEntries, GetNothingWhereTheOthersFillTheCanvas) {
    const auto canvas = makeCanvas(100, 90);
    setRows(*canvas, {{ProportionalLength, 2}, {AbsoluteLength, 60}, {AutoLength, 30}});
    setColumns(*canvas, {{AbsoluteLength, 150}, {ProportionalLength, 2}});
    VelnorImage::FixCanvasRow(canvas.get());
    VelnorImage::FixCanvasColumn(canvas.get());
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(0, 60, 30));
    EXPECT_THAT(columnSizes(*canvas), ElementsAre(150, 0));
}

TEST(ProportionalEntries, WithoutAnyWeightKeepTheirSize) {
    const auto canvas = makeCanvas(100, 100);
    setRows(*canvas, {{ProportionalLength, 0}, {AbsoluteLength, 60}});
    VelnorImage::FixCanvasRow(canvas.get());
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(0, 60));
}

TEST(Grid, WithoutEntriesStaysEmpty) {
    const auto canvas = makeCanvas(100, 100);
    setRows(*canvas, {});
    setColumns(*canvas, {});
    auto& item = addItem<VelnorDrawableElement>(*canvas);
    item.x = 3;
    item.y = 4;
    EXPECT_EQ(VelnorImage::CalculateRowLength(canvas.get()), 0);
    EXPECT_EQ(VelnorImage::CalculateColumnLength(canvas.get()), 0);
    EXPECT_EQ(canvas->rowCount, 0);
    EXPECT_EQ(canvas->columnCount, 0);
}

// Two entries, the second automatic; one item in it.
class AutomaticEntry : public testing::Test {
protected:
    AutomaticEntry() {
        setRows(*canvas, {{AbsoluteLength, 100}, {AutoLength, 0}});
        setColumns(*canvas, {{AbsoluteLength, 100}, {AutoLength, 0}});
    }

    VelnorDrawableElement& addMeasured(QRectF rectangle, int anchor) {
        auto& item = addItem<VelnorDrawableElement>(*canvas);
        item.boundingBox = rectangle;
        item.anchor = anchor;
        item.row = item.column = 1;
        item.x = 20;
        item.y = 30;
        item.xr = 5;
        item.yb = 7;
        return item;
    }
    int rowSize() {
        VelnorImage::CalculateRowLength(canvas.get());
        return canvas->rows[1].size;
    }
    int columnSize() {
        VelnorImage::CalculateColumnLength(canvas.get());
        return canvas->columns[1].size;
    }

    CanvasPointer canvas = makeCanvas(500, 500);
};

struct ExtentRow : Row {
    int anchor;
    int rowSize;
    int columnSize;
};

class AutomaticExtent : public AutomaticEntry, public testing::WithParamInterface<ExtentRow> {};

TEST_P(AutomaticExtent, FollowsTheAnchorInRowsOnly) {
    addMeasured(QRectF(20, 30, 60, 40), GetParam().anchor);
    EXPECT_EQ(rowSize(), GetParam().rowSize);
    EXPECT_EQ(columnSize(), GetParam().columnSize);
}

INSTANTIATE_TEST_SUITE_P(
    Grid, AutomaticExtent,
    testing::Values(ExtentRow{{"TopLeftCountsTheNearOffsets"}, 5, 70, 80},
                    ExtentRow{{"BottomRightCountsTheFarOffsetInRowsAlone"}, 10, 47, 80},
                    ExtentRow{{"CentredCountsBothOffsetsInRowsAlone"}, 15, 77, 80},
                    ExtentRow{{"NoAnchorIsTopLeft"}, 0, 70, 80}),
    RuleAsName());

TEST_F(AutomaticEntry, WithoutItemsHasNoLength) {
    canvas->rows[1].size = 77;
    canvas->columns[1].size = 77;
    EXPECT_EQ(rowSize(), 0);
    EXPECT_EQ(columnSize(), 0);
}

TEST_F(AutomaticEntry, WithoutAnItemListHasNoLength) {
    canvas->items.reset();
    canvas->rows[1].size = 77;
    EXPECT_EQ(rowSize(), 0);
}

TEST_F(AutomaticEntry, IsNotSizedByASpanningItem) {
    setRows(*canvas, {{AbsoluteLength, 9}, {AutoLength, 0}, {AbsoluteLength, 9}});
    setColumns(*canvas, {{AbsoluteLength, 9}, {AutoLength, 0}, {AbsoluteLength, 9}});
    auto& crossing = addMeasured(QRectF(0, 0, 60, 40), 5);
    crossing.row = crossing.column = 0;
    crossing.rowspan = crossing.columnspan = 3;
    auto& starting = addMeasured(QRectF(0, 0, 60, 40), 5);
    starting.rowspan = starting.columnspan = 2;
    EXPECT_EQ(rowSize(), 0);
    EXPECT_EQ(columnSize(), 0);
}

TEST_F(AutomaticEntry, TakesTheLargestExtentRounded) {
    addMeasured(QRectF(0, 0, 60, 40.4), 5);
    addMeasured(QRectF(0, 0, 60.5, 40.5), 5);
    addMeasured(QRectF(0, 0, 10, 10), 5);
    EXPECT_EQ(rowSize(), 71);
    EXPECT_EQ(columnSize(), 81);
}

TEST_F(AutomaticEntry, IsNeverNegative) {
    auto& item = addMeasured(QRectF(0, 0, 1, 1), 5);
    item.x = item.y = -50;
    EXPECT_EQ(rowSize(), 0);
    EXPECT_EQ(columnSize(), 0);
}

TEST_F(AutomaticEntry, CountsTheOffsetOfAHiddenItem) {
    addMeasured(QRectF(), 5).hidden = 1;
    EXPECT_EQ(rowSize(), 30);
    EXPECT_EQ(columnSize(), 20);
}

TEST_F(AutomaticEntry, LeavesTheRestToProportionalEntries) {
    setRows(*canvas, {{ProportionalLength, 1}, {AutoLength, 0}});
    addMeasured(QRectF(0, 0, 60, 40), 5);
    EXPECT_EQ(rowSize(), 70);
    EXPECT_THAT(rowSizes(*canvas), ElementsAre(430, 70));
    EXPECT_THAT(rowOffsets(*canvas), ElementsAre(0, 430));
}

TEST(Grid, RightAnchoredItemLiesInItsAutomaticColumnWithoutWideningItByItsRightOffset) {
    const auto canvas = makeCanvas(500, 500);
    setColumns(*canvas, {{AutoLength, 0}});
    auto& item = addItem<VelnorDrawableElement>(*canvas);
    item.anchor = velnor::AnchorTop | velnor::AnchorRight;
    item.xr = 30;
    item.boundingBox = QRectF(0, 0, 80, 10);
    VelnorImage::CalculateColumnLength(canvas.get());
    EXPECT_EQ(canvas->columns[0].size, 80);
    EXPECT_EQ(item.x, -30);
}

struct AnchorRow : Row {
    int anchor;
    int left;
    int right;
    int x;
    int xr;
    int width;
    int expected;
    int expectedWidth;
};

constexpr int Fallback = -77;

class HorizontalAnchor : public testing::TestWithParam<AnchorRow> {};

TEST_P(HorizontalAnchor, GivesTheLeftEdge) {
    const AnchorRow& row = GetParam();
    int width = row.width;
    EXPECT_EQ(VelnorImage::getXfromAnchor(row.anchor, row.left, row.right, row.x, row.xr, &width,
                                          Fallback),
              row.expected);
    EXPECT_EQ(width, row.expectedWidth);
}

INSTANTIATE_TEST_SUITE_P(
    Grid, HorizontalAnchor,
    testing::Values(
        AnchorRow{{"CentredWithoutWidthFillsTheCell"}, 12, 100, 300, 20, 30, 0, 120, 150},
        AnchorRow{{"CentredWithoutRoomFallsBack"}, 12, 100, 300, 150, 50, 0, Fallback, 0},
        AnchorRow{{"CentredLeftOfTheCellFallsBack"}, 12, 100, 300, -1, 0, 0, Fallback, 0},
        AnchorRow{{"CentredAtTheRightEdgeFallsBack"}, 12, 100, 300, 200, -50, 0, Fallback, 0},
        AnchorRow{{"CentredWithAWidthIgnoresOffsets"}, 12, 100, 300, 20, 30, 51, 174, 51},
        AnchorRow{{"CentredWiderThanTheCellFallsBack"}, 12, 100, 300, 0, 0, 300, Fallback, 300},
        AnchorRow{{"LeftAddsTheOffset"}, 4, 100, 300, 20, 30, 50, 120, 50},
        AnchorRow{{"LeftOutsideTheCellFallsBack"}, 4, 100, 300, 200, 0, 50, Fallback, 50},
        AnchorRow{{"LeftBeforeTheCellFallsBack"}, 4, 100, 300, -1, 0, 50, Fallback, 50},
        AnchorRow{{"RightCountsFromTheRightEdge"}, 8, 100, 300, 20, 30, 50, 220, 50},
        AnchorRow{{"RightWithoutWidthFallsBack"}, 8, 100, 300, 20, 30, 0, Fallback, 0},
        AnchorRow{{"RightBeforeTheCellFallsBack"}, 8, 100, 300, 0, 0, 201, Fallback, 201},
        AnchorRow{{"RightAtTheRightEdgeFallsBack"}, 8, 100, 300, 0, -50, 50, Fallback, 50},
        AnchorRow{{"NoHorizontalAnchorFallsBack"}, 3, 100, 300, 20, 30, 50, Fallback, 50}),
    RuleAsName());

TEST(Grid, VerticalAnchorAddsTheOffsetOnlyWithItsTopBit) {
    EXPECT_EQ(VelnorImage::getYFromAnchor(velnor::AnchorTop, 100, 20, Fallback), 120);
    EXPECT_EQ(VelnorImage::getYFromAnchor(velnor::AnchorVerticalCentre, 100, 20, Fallback), 120);
    EXPECT_EQ(VelnorImage::getYFromAnchor(velnor::AnchorBottom, 100, 20, Fallback), Fallback);
    EXPECT_EQ(VelnorImage::getYFromAnchor(velnor::AnchorLeft, 100, 20, Fallback), Fallback);
}

} // namespace
