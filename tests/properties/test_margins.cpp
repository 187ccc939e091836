// Margins of the canvas are white paper around the picture that the canvas makes without them.
#include "support/drawing.h"
#include "support/random_items.h"
#include "support/same_picture.h"

namespace {

Document randomPage(Random& random) {
    Document document;
    document.width = random.number(100, 700);
    document.smoothTexts = random.oneIn(2);
    document.smoothShapes = random.oneIn(2);
    if (random.oneIn(2)) {
        document.rows = {"Auto", "80", "Auto"};
        document.columns = {"1*", "Auto"};
    }
    for (int i = 0; i < 5; ++i) {
        Item item = randomItem(random);
        item.row = random.number(0, 2);
        item.column = random.number(0, 1);
        item.x = random.number(-20, document.width);
        item.y = random.number(-20, 200);
        item.rotation = random.oneIn(3) ? randomAngle(random) : 0;
        document.items.push_back(item);
    }
    return document;
}

QMargins randomMargins(Random& random) {
    return {random.number(0, 90), random.number(0, 90), random.number(0, 90), random.number(0, 90)};
}

void expectFrame(Document document, const QMargins& margins) {
    const QImage bare = drawn(document);
    document.margins = margins;
    EXPECT_TRUE(samePicture(drawn(document), framed(bare, margins))) << document.xml().constData();
}

} // namespace

TEST(Margins, TheyFrameACanvasWithAHeight) {
    forEachSeed([](Random& random) {
        Document document = randomPage(random);
        document.height = random.number(100, 600);
        expectFrame(document, randomMargins(random));
    });
}

TEST(Margins, TheyFrameACanvasThatGrows) {
    forEachSeed([](Random& random) {
        const Document document = randomPage(random);
        expectFrame(document, randomMargins(random));
    });
}
