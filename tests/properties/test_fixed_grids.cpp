// A grid of fixed rows and columns only adds up: its items could as well be placed by hand.
#include "support/drawing.h"
#include "support/random_items.h"
#include "support/same_picture.h"

#include <numeric>

namespace {

constexpr int CanvasLength = 1100;

// Each is long enough for any item: what hangs out of its cell at the top or the left is rounded
// towards the cell, and that would be another one in the canvas of one cell.
std::vector<int> randomLengths(Random& random) {
    std::vector<int> lengths;
    for (int count = random.number(1, 3); count > 0; --count) {
        lengths.push_back(random.number(Reach, Reach + 50));
    }
    return lengths;
}

std::vector<QByteArray> definitions(const std::vector<int>& lengths) {
    std::vector<QByteArray> sizes;
    for (const int length : lengths) {
        sizes.push_back(QByteArray::number(length));
    }
    return sizes;
}

int sumBefore(const std::vector<int>& lengths, int end) {
    return std::accumulate(lengths.begin(), lengths.begin() + end, 0);
}

// An item in random cells; it is turned at times and anchored anyhow.
Item randomCellItem(Random& random, int rowCount, int columnCount) {
    static const std::vector<QByteArray> vertical = {"top", "center", "bottom"};
    static const std::vector<QByteArray> horizontal = {"left", "center", "right"};
    Item item = randomItem(random);
    item.row = random.number(0, rowCount - 1);
    item.column = random.number(0, columnCount - 1);
    item.rowspan = random.number(1, rowCount - item.row);
    item.columnspan = random.number(1, columnCount - item.column);
    item.x = random.number(0, 40);
    item.y = random.number(0, 40);
    item.xr = random.number(0, 40);
    item.yb = random.number(0, 40);
    item.vanchor = random.oneOf(vertical);
    item.hanchor = random.oneOf(horizontal);
    item.rotation = random.oneIn(3) ? randomAngle(random) : 0;
    return item;
}

// The same place in a canvas that is one cell.
Item placedByHand(Item item, const std::vector<int>& rows, const std::vector<int>& columns) {
    item.x += sumBefore(columns, item.column);
    item.y += sumBefore(rows, item.row);
    item.xr += CanvasLength - sumBefore(columns, item.column + item.columnspan);
    item.yb += CanvasLength - sumBefore(rows, item.row + item.rowspan);
    item.row = item.column = 0;
    item.rowspan = item.columnspan = 1;
    return item;
}

} // namespace

TEST(FixedGrid, ItsItemsCouldAsWellBePlacedByHand) {
    forEachSeed([](Random& random) {
        const std::vector<int> rows = randomLengths(random);
        const std::vector<int> columns = randomLengths(random);
        Document grid;
        grid.width = CanvasLength;
        grid.height = CanvasLength;
        Document byHand = grid;
        grid.rows = definitions(rows);
        grid.columns = definitions(columns);
        for (int i = 0; i < 8; ++i) {
            const Item item = randomCellItem(random, static_cast<int>(rows.size()),
                                             static_cast<int>(columns.size()));
            grid.items.push_back(item);
            byHand.items.push_back(placedByHand(item, rows, columns));
        }
        EXPECT_TRUE(samePicture(drawn(grid), drawn(byHand))) << grid.xml().constData();
    });
}
