// An item that is put elsewhere in its cell draws the same dots there.
#include "support/drawing.h"
#include "support/ink.h"
#include "support/pictures.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

constexpr int MostMoved = 150;

Document roomyCanvas(bool smooth) {
    Document document;
    document.width = 2 * Reach + 2 * MostMoved;
    document.height = document.width;
    document.smoothTexts = smooth;
    document.smoothShapes = smooth;
    return document;
}

using Same = testing::AssertionResult (*)(const QImage&, const QImage&);

// Draws the item, draws it elsewhere, and compares what `same` compares.
void expectInkToMove(Random& random, Item item, bool smooth, Same same) {
    const int dx = random.number(-MostMoved, MostMoved);
    const int dy = random.number(-MostMoved, MostMoved);
    item.x = Reach + MostMoved / 2;
    item.y = Reach + MostMoved / 2;
    const QImage before = drawn(withOnly(roomyCanvas(smooth), item));
    item.x += dx;
    item.y += dy;
    const Document moved = withOnly(roomyCanvas(smooth), item);
    ASSERT_FALSE(inkOf(before).isEmpty()) << moved.xml().constData();
    EXPECT_TRUE(same(drawn(moved), pushed(before, dx, dy))) << moved.xml().constData();
}

} // namespace

class Moving : public testing::TestWithParam<QByteArray> {};

TEST_P(Moving, AnUprightItemWithHardEdgesDrawsTheSameDotsElsewhere) {
    forEachSeed([](Random& random) {
        expectInkToMove(random, randomItem(random, GetParam()), false, samePicture);
    });
}

TEST_P(Moving, AnUprightItemWithSmoothEdgesDrawsTheSameDotsElsewhere) {
    forEachSeed([](Random& random) {
        expectInkToMove(random, randomItem(random, GetParam()), true, samePicture);
    });
}

TEST_P(Moving, AnItemTurnedByQuartersDrawsTheSameDotsElsewhere) {
    forEachSeed([](Random& random) {
        Item item = randomItem(random, GetParam());
        item.rotation = randomQuarterTurn(random);
        expectInkToMove(random, item, random.oneIn(2), samePicture);
    });
}

// The corners of a turned item lie between dots, and which one they are rounded to depends on the
// last bits of the sum of place and distance.
TEST_P(Moving, AnItemTurnedByAnyAngleDrawsTheSameElsewhereToOneDot) {
    forEachSeed([](Random& random) {
        Item item = randomItem(random, GetParam());
        item.rotation = randomAngle(random);
        expectInkToMove(random, item, random.oneIn(2), sameInkToOneDot);
    });
}

INSTANTIATE_TEST_SUITE_P(EveryKind, Moving, testing::ValuesIn(itemKinds()), KindAsName());
