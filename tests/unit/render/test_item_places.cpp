#include "render/item_places.h"
#include "support/canvases.h"

#include <gtest/gtest.h>

namespace {

// A canvas with one text that was measured at (10, 20), where it covers 30 x 15.
class ItemPlacesTest : public testing::Test {
protected:
    ItemPlacesTest() { text.boundingBox = QRectF(10, 20, 30, 15); }

    CanvasPointer canvas = makeCanvas(100, 80);
    VelnorDrawableText& text = addItem<VelnorDrawableText>(*canvas, 10, 20, 30, 15);
};

TEST_F(ItemPlacesTest, EndWhereTheLowestItemDoes) {
    addItem<VelnorDrawableRectangle>(*canvas, 0, 0, 10, 10).boundingBox = QRectF(0, 5, 10, 45.5);
    EXPECT_EQ(velnor::ItemPlaces(*canvas).expectedEnd(), 51);
}

TEST_F(ItemPlacesTest, EndWhereTheLayoutMovesTheItems) {
    const velnor::ItemPlaces places(*canvas);
    EXPECT_EQ(places.expectedEnd(), 35);
    text.y += 40;
    EXPECT_EQ(places.expectedEnd(), 75);
}

TEST_F(ItemPlacesTest, EndAtTheTopWithoutAVisibleItem) {
    text.hidden = 1;
    EXPECT_EQ(velnor::ItemPlaces(*canvas).expectedEnd(), 0);
    EXPECT_EQ(velnor::ItemPlaces(*makeCanvas(100, 80)).expectedEnd(), 0);
}

TEST_F(ItemPlacesTest, EndAtTheTopForItemsAboveIt) {
    text.y = -200;
    text.boundingBox.moveTop(-200);
    EXPECT_EQ(velnor::ItemPlaces(*canvas).expectedEnd(), 0);
}

} // namespace
