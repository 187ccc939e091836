// A canvas without a height is the canvas with one, cut off below its lowest item.
#include "support/drawing.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

constexpr int RollMarginAt203Dpi = 16; // 2 mm
constexpr int CanvasHeight = 1200;

// Items anywhere on the upper part of the canvas, and a line below all of them.
Document randomTicket(Random& random, int lowest) {
    Document document;
    document.width = 700;
    for (int i = 0; i < 6; ++i) {
        Item item = randomItem(random);
        item.x = random.number(0, document.width);
        item.y = random.number(0, lowest - Reach);
        item.rotation = random.oneIn(2) ? randomAngle(random) : 0;
        document.items.push_back(item);
    }
    const int thickness = random.number(2, 8);
    document.items.insert(document.items.begin() + random.number(0, 6),
                          ruler(0, lowest - thickness, document.width, thickness));
    return document;
}

} // namespace

TEST(Growing, TheCanvasEndsTwoMillimetresBelowItsLowestItem) {
    forEachSeed([](Random& random) {
        const int lowest = random.number(Reach + 10, 800);
        const Document document = randomTicket(random, lowest);
        EXPECT_EQ(drawn(document).height(), lowest + RollMarginAt203Dpi)
            << document.xml().constData();
    });
}

TEST(Growing, TheCanvasIsTheOneWithAHeightCutOff) {
    forEachSeed([](Random& random) {
        Document document = randomTicket(random, random.number(Reach + 10, 800));
        document.smoothTexts = random.oneIn(2);
        document.smoothShapes = random.oneIn(2);
        const QImage grown = drawn(document);
        document.height = CanvasHeight;
        EXPECT_TRUE(samePicture(grown, drawn(document).copy(grown.rect())))
            << document.xml().constData();
    });
}

TEST(Growing, AutomaticRowsAreThoseOfACanvasWithAHeight) {
    forEachSeed([](Random& random) {
        Document document;
        document.width = 700;
        document.rows = {"Auto", "60", "Auto", "Auto"};
        document.columns = {"250", "1*"};
        for (int i = 0; i < 6; ++i) {
            Item item = randomItem(random);
            item.row = random.number(0, 3);
            item.column = random.number(0, 1);
            item.y = random.number(0, 20);
            document.items.push_back(item);
        }
        document.items.push_back(ruler(3, Reach, document.width, 3));
        const QImage grown = drawn(document);
        document.height = 2 * CanvasHeight;
        EXPECT_TRUE(samePicture(grown, drawn(document).copy(grown.rect())))
            << document.xml().constData();
    });
}
