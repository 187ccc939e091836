// What is measured is what is drawn: an automatic cell holds its item, and what follows begins
// right behind it.
#include "support/drawing.h"
#include "support/pictures.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

constexpr int RollMarginAt203Dpi = 16;
constexpr int CanvasLength = 500;
constexpr int RulerThickness = 4;

Document page() {
    Document document;
    document.width = CanvasLength;
    return document;
}

// Where the drawing pass says that the item ends: a growing canvas is cut off below it.
int lowestPointOf(const Item& item) {
    return drawn(withOnly(page(), item)).height() - RollMarginAt203Dpi;
}

Item randomItemWithOffsets(Random& random, const QByteArray& kind) {
    Item item = randomItem(random, kind);
    item.x = random.number(10, 60);
    item.y = random.number(10, 60);
    return item;
}

} // namespace

class AutomaticCell : public testing::TestWithParam<QByteArray> {};

TEST_P(AutomaticCell, TheNextRowBeginsRightBelowTheItem) {
    forEachSeed([](Random& random) {
        const Item item = randomItemWithOffsets(random, GetParam());
        const int lowest = lowestPointOf(item);
        Document document = withOnly(page(), item);
        document.height = CanvasLength;
        const QImage alone = drawn(document);
        document.rows = {"Auto", "100"};
        document.items.push_back(ruler(1, 0, CanvasLength, RulerThickness));
        const QImage both = drawn(document);
        Document handPlaced = withOnly(page(), item);
        handPlaced.height = CanvasLength;
        handPlaced.items.push_back(ruler(0, lowest, CanvasLength, RulerThickness));
        EXPECT_TRUE(samePicture(both, drawn(handPlaced))) << document.xml().constData();
        EXPECT_NE(inkDots(alone), 0) << document.xml().constData();
    });
}

TEST_P(AutomaticCell, EveryAnchorPutsTheItemToTheSamePlace) {
    forEachSeed([](Random& random) {
        Document document = withOnly(page(), randomItem(random, GetParam()));
        document.height = CanvasLength;
        document.rows = {"Auto", "100"};
        document.columns = {"Auto", "100"};
        const QImage expected = drawn(document);
        for (const char* vertical : {"top", "center", "bottom"}) {
            for (const char* horizontal : {"left", "center", "right"}) {
                document.items[0].vanchor = vertical;
                document.items[0].hanchor = horizontal;
                EXPECT_TRUE(samePicture(drawn(document), expected)) << document.xml().constData();
            }
        }
    });
}

TEST_P(AutomaticCell, TheNextRowBeginsRightBelowATurnedItemToOneDot) {
    forEachSeed([](Random& random) {
        Item item = randomItemWithOffsets(random, GetParam());
        item.rotation = randomAngle(random);
        const int lowest = lowestPointOf(item);
        Document document = withOnly(page(), item);
        document.rows = {"Auto", "0"};
        document.items.push_back(ruler(1, 0, CanvasLength, RulerThickness));
        const int end = drawn(document).height() - RollMarginAt203Dpi;
        EXPECT_NEAR(end, lowest + RulerThickness, 1) << document.xml().constData();
    });
}

INSTANTIATE_TEST_SUITE_P(EveryKind, AutomaticCell, testing::ValuesIn(itemKinds()), KindAsName());
