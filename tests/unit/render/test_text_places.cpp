#include "render/text_places.h"
#include "support/canvases.h"

#include <gtest/gtest.h>

namespace {

// A canvas of 100 x 80 with one text that was measured at (10, 20), where it covers 30 x 15.
class TextPlacesTest : public testing::Test {
protected:
    TextPlacesTest() { text.boundingBox = QRectF(10, 20, 30, 15); }

    // Whether it is inside both times when the layout moves it by so much.
    bool insideMovedBy(int x, int y) {
        const velnor::TextPlaces places(*canvas);
        text.x += x;
        text.y += y;
        const bool inside = places.areInsideInBothPasses();
        text.x -= x;
        text.y -= y;
        return inside;
    }

    std::unique_ptr<VelnorDrawableCanvas> canvas = makeCanvas(100, 80);
    VelnorDrawableText& text = addItem<VelnorDrawableText>(*canvas, 10, 20, 30, 15);
};

} // namespace

TEST_F(TextPlacesTest, AreInsideUpToEachEdge) {
    EXPECT_TRUE(insideMovedBy(0, 0));
    EXPECT_TRUE(insideMovedBy(-10, -20));
    EXPECT_TRUE(insideMovedBy(60, 45));
}

TEST_F(TextPlacesTest, AreNotInsideWhereTheLayoutMovesOneOut) {
    EXPECT_FALSE(insideMovedBy(-11, 0));
    EXPECT_FALSE(insideMovedBy(0, -21));
    EXPECT_FALSE(insideMovedBy(61, 0));
    EXPECT_FALSE(insideMovedBy(0, 46));
    EXPECT_FALSE(insideMovedBy(1000, 1000));
}

TEST_F(TextPlacesTest, AreNotInsideWhereOneWasMeasuredOutside) {
    text.boundingBox.moveLeft(500);
    EXPECT_FALSE(insideMovedBy(0, 0));
    EXPECT_FALSE(insideMovedBy(-490, 0));
}

TEST_F(TextPlacesTest, OfHiddenTextsDoNotCount) {
    text.hidden = 1;
    EXPECT_TRUE(insideMovedBy(1000, 0));
}

TEST_F(TextPlacesTest, OfOtherItemsDoNotCount) {
    addItem<VelnorDrawableRectangle>(*canvas, 500, 500, 10, 10).boundingBox =
        QRectF(500, 500, 10, 10);
    EXPECT_TRUE(insideMovedBy(0, 0));
}
