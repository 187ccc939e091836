// The order of items matters only where they overlap.
#include "support/drawing.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

constexpr int Columns = 3;
constexpr int Rows = 3;

// One item in the middle of each cell; the cells are so large that no item leaves its own.
Document randomBoard(Random& random) {
    constexpr int CellLength = Reach;
    Document document;
    document.width = Columns * CellLength;
    document.height = Rows * CellLength;
    document.columns.assign(Columns, "1*");
    document.rows.assign(Rows, "1*");
    document.smoothTexts = random.oneIn(2);
    document.smoothShapes = random.oneIn(2);
    for (int cell = 0; cell < Columns * Rows; ++cell) {
        Item item = randomItem(random);
        item.row = cell / Columns;
        item.column = cell % Columns;
        item.hanchor = item.vanchor = "center";
        item.rotation = random.oneIn(2) ? randomAngle(random) : 0;
        document.items.push_back(item);
    }
    return document;
}

void shuffle(Random& random, std::vector<Item>& items) {
    for (auto last = static_cast<int>(items.size()) - 1; last > 0; --last) {
        std::swap(items[static_cast<size_t>(last)],
                  items[static_cast<size_t>(random.number(0, last))]);
    }
}

} // namespace

TEST(Order, ItemsThatDoNotOverlapMayStandInAnyOrder) {
    forEachSeed([](Random& random) {
        Document document = randomBoard(random);
        const QImage expected = drawn(document);
        for (int round = 0; round < 3; ++round) {
            shuffle(random, document.items);
            EXPECT_TRUE(samePicture(drawn(document), expected)) << document.xml().constData();
        }
    });
}

TEST(Order, AutomaticRowsAndColumnsDoNotDependOnTheOrder) {
    forEachSeed([](Random& random) {
        Document document = randomBoard(random);
        document.columns.assign(Columns, "Auto");
        document.rows.assign(Rows, "Auto");
        for (Item& item : document.items) {
            // Outlines and slanted letters reach out of the cell by a few dots.
            item.hanchor = "left";
            item.vanchor = "top";
            item.x = item.y = 12;
        }
        const QImage expected = drawn(document);
        shuffle(random, document.items);
        EXPECT_TRUE(samePicture(drawn(document), expected)) << document.xml().constData();
    });
}
