// A hidden item is no item, but for its offsets, which still size automatic rows and columns.
#include "support/drawing.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

Document randomPage(Random& random, const std::vector<QByteArray>& rows,
                    const std::vector<QByteArray>& columns) {
    Document document;
    document.width = 800;
    document.height = 1000;
    document.rows = rows;
    document.columns = columns;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
            Item item = randomItem(random);
            item.row = row;
            item.column = column;
            document.items.push_back(item);
        }
    }
    return document;
}

Item hiddenItem(Random& random) {
    Item item = randomItem(random);
    item.hidden = true;
    item.row = random.number(0, 1);
    item.column = random.number(0, 1);
    return item;
}

Document withSomewhere(Random& random, Document document, const Item& item) {
    const int place = random.number(0, static_cast<int>(document.items.size()));
    document.items.insert(document.items.begin() + place, item);
    return document;
}

} // namespace

TEST(Hidden, AnItemInAFixedGridIsNoItem) {
    forEachSeed([](Random& random) {
        const Document document = randomPage(random, {"400", "1*"}, {"1*", "2*"});
        Item hidden = hiddenItem(random);
        hidden.x = random.number(0, 300);
        hidden.y = random.number(0, 300);
        hidden.yb = random.number(0, 300);
        const Document other = withSomewhere(random, document, hidden);
        EXPECT_TRUE(samePicture(drawn(other), drawn(document))) << other.xml().constData();
    });
}

TEST(Hidden, AnItemWithoutOffsetsInAnAutomaticGridIsNoItem) {
    forEachSeed([](Random& random) {
        const Document document = randomPage(random, {"Auto", "Auto"}, {"Auto", "Auto"});
        const Document other = withSomewhere(random, document, hiddenItem(random));
        EXPECT_TRUE(samePicture(drawn(other), drawn(document))) << other.xml().constData();
    });
}

TEST(Hidden, ASpanningItemInAnAutomaticGridIsNoItem) {
    forEachSeed([](Random& random) {
        const Document document = randomPage(random, {"Auto", "Auto"}, {"Auto", "Auto"});
        Item hidden = hiddenItem(random);
        hidden.row = hidden.column = 0;
        hidden.rowspan = hidden.columnspan = 2;
        hidden.x = hidden.y = 500;
        const Document other = withSomewhere(random, document, hidden);
        EXPECT_TRUE(samePicture(drawn(other), drawn(document))) << other.xml().constData();
    });
}

TEST(Hidden, AnItemAloneMakesItsAutomaticRowAndColumnAsLongAsItsOffsets) {
    forEachSeed([](Random& random) {
        Document document;
        document.width = 800;
        document.height = 800;
        Item visible = randomItem(random);
        visible.row = 1;
        visible.column = 1;
        Item hidden = randomItem(random);
        hidden.hidden = true;
        hidden.x = random.number(0, 300);
        hidden.y = random.number(0, 300);
        hidden.rotation = randomAngle(random);
        document.items = {visible, hidden};
        Document fixed = withOnly(document, visible);
        document.rows = document.columns = {"Auto", "200"};
        fixed.rows = {QByteArray::number(hidden.y), "200"};
        fixed.columns = {QByteArray::number(hidden.x), "200"};
        EXPECT_TRUE(samePicture(drawn(document), drawn(fixed))) << document.xml().constData();
    });
}
