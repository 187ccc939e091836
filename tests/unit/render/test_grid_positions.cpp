#include "render/velnorimage.h"
#include "support/canvases.h"
#include "support/rows.h"

#include <limits>

using velnor::AbsoluteLength;
using velnor::AnchorBottom;
using velnor::AnchorHorizontalCentre;
using velnor::AnchorLeft;
using velnor::AnchorRight;
using velnor::AnchorTop;
using velnor::AnchorVerticalCentre;

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();

// A grid of rows of 50, 100 and 30 dots and of columns of 40, 200 and 60 dots.
class Position : public testing::Test {
protected:
    Position() {
        setRows(*canvas, {{AbsoluteLength, 50}, {AbsoluteLength, 100}, {AbsoluteLength, 30}});
        setColumns(*canvas, {{AbsoluteLength, 40}, {AbsoluteLength, 200}, {AbsoluteLength, 60}});
    }

    void layOut() {
        EXPECT_EQ(VelnorImage::CalculateRowLength(canvas.get()), 0);
        EXPECT_EQ(VelnorImage::CalculateColumnLength(canvas.get()), 0);
    }

    CanvasPointer canvas = makeCanvas(300, 180);
    VelnorDrawableElement& item = addItem<VelnorDrawableElement>(*canvas);
};

// The item lies in the second row and column at x 20, y 10, xr 30, yb 10.
struct PlaceRow : Row {
    int anchor;
    QRectF drawn;
    int x;
    int y;
};

class AnchoredPosition : public Position, public testing::WithParamInterface<PlaceRow> {};

TEST_P(AnchoredPosition, PutsTheDrawnRectangleWhereTheAnchorSays) {
    item.anchor = GetParam().anchor;
    item.boundingBox = GetParam().drawn;
    item.row = item.column = 1;
    item.x = 20;
    item.y = 10;
    item.xr = 30;
    item.yb = 10;
    layOut();
    EXPECT_EQ(item.x, GetParam().x);
    EXPECT_EQ(item.y, GetParam().y);
}

constexpr int Centred = AnchorVerticalCentre | AnchorHorizontalCentre;

// In the cell from 40 to 240 and from 50 to 150.
INSTANTIATE_TEST_SUITE_P(
    Grid, AnchoredPosition,
    testing::Values(
        PlaceRow{{"TopLeftAddsTheOffset"}, 5, QRectF(20, 10, 80, 40), 60, 60},
        PlaceRow{{"BottomRightCountsFromTheFarEdges"}, 10, QRectF(20, 10, 80, 40), 130, 100},
        PlaceRow{{"CentredUsesBothOffsets"}, Centred, QRectF(20, 10, 80, 40), 95, 80},
        PlaceRow{{"TopRight"}, AnchorTop | AnchorRight, QRectF(20, 10, 80, 40), 130, 60},
        PlaceRow{{"BottomLeft"}, AnchorBottom | AnchorLeft, QRectF(20, 10, 80, 40), 60, 100},
        PlaceRow{{"NoAnchorIsTopLeft"}, 0, QRectF(20, 10, 80, 40), 60, 60},
        PlaceRow{{"BitsBeyondTheGroupsDoNotCount"}, 16 + 5, QRectF(20, 10, 80, 40), 60, 60},
        PlaceRow{{"TopLeftMovesWhatWasDrawnBesideItsPoint"}, 5, QRectF(25, 7, 80, 40), 55, 63},
        PlaceRow{
            {"BottomRightMovesWhatWasDrawnBesideItsPoint"}, 10, QRectF(25, 13, 80, 40), 125, 97},
        PlaceRow{
            {"CentredMovesWhatWasDrawnBesideItsPoint"}, Centred, QRectF(25, 13, 80, 40), 90, 77},
        PlaceRow{{"DrawnEdgeIsRoundedHalvesUpward"}, 5, QRectF(20.5, -2.5, 80, 40), 59, 72},
        PlaceRow{{"FarPositionIsTruncated"}, 10, QRectF(20, 10, 80.5, 40.5), 129, 99},
        PlaceRow{
            {"NegativeFarPositionIsTruncatedTowardZero"}, 10, QRectF(20, 10, 180.5, 95.5), 30, 45},
        PlaceRow{{"CentredPositionIsTruncated"}, Centred, QRectF(20, 10, 81, 41), 94, 79},
        PlaceRow{{"CentredPositionIsTruncatedAsAWhole"}, Centred, QRectF(20, 10, 181, 91), 44, 54},
        PlaceRow{{"NegativeCentredPositionIsTruncatedTowardZero"},
                 Centred,
                 QRectF(20, 10, 231, 121),
                 20,
                 40},
        PlaceRow{{"HiddenItemHasNoRectangle"}, 5, QRectF(), 80, 70}),
    RuleAsName());

TEST_F(Position, OfTextWhoseInkStartsBelowItsPointMovesUpByThatMuch) {
    item.anchor = AnchorBottom | AnchorLeft;
    item.row = 1;
    item.yb = 10;
    item.boundingBox = QRectF(0, 3, 60, 24.6);
    layOut();
    EXPECT_EQ(item.y, 50 + 65 - 3); // 65: 100 - 24.6 - 10, truncated
}

TEST_F(Position, InASpanUsesItsWholeLength) {
    item.anchor = 10;
    item.row = item.column = 1;
    item.rowspan = item.columnspan = 2;
    item.boundingBox = QRectF(0, 0, 10, 10);
    layOut();
    EXPECT_EQ(item.x, 300 - 10);
    EXPECT_EQ(item.y, 180 - 10);
}

TEST_F(Position, OfAHiddenItemIsComputedToo) {
    item.hidden = 1;
    item.row = item.column = 2;
    layOut();
    EXPECT_EQ(item.x, 240);
    EXPECT_EQ(item.y, 150);
}

TEST_F(Position, IsComputedForEveryItem) {
    auto& second = addItem<VelnorDrawableElement>(*canvas);
    second.row = second.column = 1;
    layOut();
    EXPECT_EQ(item.x, 0);
    EXPECT_EQ(second.x, 40);
    EXPECT_EQ(second.y, 50);
}

struct OutsideRow : Row {
    int index;
    int span;
    int anchor;
    int x;
    int y;
};

class PositionOutside : public Position, public testing::WithParamInterface<OutsideRow> {};

// The item is 10 x 10 dots; the grid ends at 300 and 180.
TEST_P(PositionOutside, TakesMissingEntriesAsEmpty) {
    item.row = item.column = GetParam().index;
    item.rowspan = item.columnspan = GetParam().span;
    item.anchor = GetParam().anchor;
    item.boundingBox = QRectF(0, 0, 10, 10);
    layOut();
    EXPECT_EQ(item.x, GetParam().x);
    EXPECT_EQ(item.y, GetParam().y);
}

INSTANTIATE_TEST_SUITE_P(
    Grid, PositionOutside,
    testing::Values(OutsideRow{{"IndexAtTheCountStartsAtTheEnd"}, 3, 1, 5, 300, 180},
                    OutsideRow{{"IndexFarPastTheCountStartsAtTheEnd"}, 4711, 1, 5, 300, 180},
                    OutsideRow{{"HighestIndexStartsAtTheEnd"}, Highest, 1, 5, 300, 180},
                    OutsideRow{{"NegativeIndexStartsAtZero"}, -1, 1, 5, 0, 0},
                    OutsideRow{{"LowestIndexStartsAtZero"}, Lowest, 1, 5, 0, 0},
                    OutsideRow{{"MissingEntryHasNoLength"}, 3, 1, 10, 290, 170},
                    OutsideRow{{"NegativeEntryHasNoLength"}, -1, 1, 10, -10, -10},
                    OutsideRow{{"SpanPastTheEndCountsWhatIsThere"}, 2, 5, 10, 290, 170},
                    OutsideRow{{"SpanFromANegativeIndexCountsWhatIsThere"}, -1, 3, 10, 230, 140},
                    OutsideRow{{"HighestSpanCountsWhatIsThere"}, 1, Highest, 10, 290, 170},
                    OutsideRow{{"SpanOfZeroIsEmpty"}, 1, 0, 10, 30, 40},
                    OutsideRow{{"NegativeSpanIsEmpty"}, 1, -3, 10, 30, 40},
                    OutsideRow{{"LowestSpanIsEmpty"}, 1, Lowest, 10, 30, 40}),
    RuleAsName());

TEST_F(Position, WithoutAnyEntriesStartsAtZero) {
    setRows(*canvas, {});
    setColumns(*canvas, {});
    item.x = 3;
    item.y = 4;
    item.row = item.column = 2;
    item.boundingBox = QRectF(3, 4, 10, 10);
    layOut();
    EXPECT_EQ(item.x, 3);
    EXPECT_EQ(item.y, 4);
}

TEST_F(Position, SaturatesInsteadOfWrapping) {
    setRows(*canvas, {{AbsoluteLength, Highest}, {AbsoluteLength, Highest}});
    setColumns(*canvas, {{AbsoluteLength, Lowest}, {AbsoluteLength, Lowest}});
    item.row = item.column = 2;
    item.x = Lowest;
    item.y = Highest;
    item.boundingBox = QRectF(item.x, item.y, 1, 1);
    layOut();
    EXPECT_EQ(item.x, Lowest);
    EXPECT_EQ(item.y, Highest);
    EXPECT_EQ(canvas->rows[1].offset, Highest);
    EXPECT_EQ(canvas->columns[1].offset, Lowest);
}

TEST_F(Position, SaturatesForEveryAnchorAndExtremeRectangle) {
    item.row = item.column = 1;
    for (const int anchor : {5, 10, 15}) {
        item.anchor = anchor;
        item.x = item.y = Highest;
        item.xr = item.yb = Lowest;
        item.boundingBox = QRectF(-1e300, -1e300, 1e300, 1e300);
        layOut();
        EXPECT_EQ(item.x, Highest) << "anchor " << anchor;
        EXPECT_EQ(item.y, Highest) << "anchor " << anchor;
    }
}

} // namespace
