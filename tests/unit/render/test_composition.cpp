#include "render/velnorimage.h"
#include "support/compositions.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

#include <QFile>

namespace {

VelnorDrawableRectangle& addRectangle(VelnorDrawableCanvas& canvas, int x, int y, int width,
                                      int height) {
    auto& item = addItem<VelnorDrawableRectangle>(canvas, x, y, width, height);
    item.thickness = 2;
    return item;
}

TEST_F(Composition, OfNoCanvasFails) {
    EXPECT_EQ(VelnorImage::CreateImageFromCanvas(nullptr, outputPath().toUtf8().constData()), -1);
    EXPECT_EQ(folder.files(), QStringList());
}

TEST_F(Composition, HasTheCanvasSizeMarginsAndResolution) {
    canvas = makeCanvas(576, 200, 203);
    canvas->x = 10;
    canvas->y = 20;
    canvas->xr = 30;
    canvas->yb = 40;
    addRectangle(*canvas, 0, 0, 575, 199).thickness = 1;
    const QImage picture = composed();
    EXPECT_EQ(picture.size(), QSize(616, 260));
    EXPECT_EQ(inkOf(picture), QRect(10, 20, 576, 200));
    EXPECT_EQ(picture.dotsPerMeterX(), 7992);
    EXPECT_EQ(picture.dotsPerMeterY(), 7992);
}

struct RollRow : Row {
    int dpi;
    int metre;
    int margin;
};

class GrowingRoll : public Composition, public testing::WithParamInterface<RollRow> {};

TEST_P(GrowingRoll, IsTheRollMarginAloneWithoutItems) {
    canvas = makeCanvas(100, -1, GetParam().dpi);
    canvas->y = 5;
    canvas->yb = 7;
    const QImage picture = composed();
    EXPECT_TRUE(samePicture(picture, whiteSurface(100, GetParam().margin + 12)));
    EXPECT_EQ(canvas->height, GetParam().metre);
}

TEST_P(GrowingRoll, EndsBelowTheLowestItem) {
    canvas = makeCanvas(100, -1, GetParam().dpi);
    addRectangle(*canvas, 10, 300, 50, 100);
    addRectangle(*canvas, 10, 20, 50, 30);
    EXPECT_EQ(composed().size(), QSize(100, 400 + GetParam().margin));
}

INSTANTIATE_TEST_SUITE_P(Roll, GrowingRoll,
                         testing::Values(RollRow{{"At203Dpi"}, 203, 7992, 16},
                                         RollRow{{"At300Dpi"}, 300, 11811, 24},
                                         RollRow{{"At96Dpi"}, 96, 3780, 8}),
                         RuleAsName());

TEST_F(Composition, OfAGivenHeightIsNotCropped) {
    addRectangle(*canvas, 10, 20, 50, 30);
    EXPECT_EQ(composed().size(), QSize(300, 200));
    EXPECT_EQ(canvas->height, 200);
}

// Measured halves of dots that the sine of 30 degrees makes are rounded either way, by where the box
// stands: drawing then reaches one row further than what was made white for it.
TEST_F(Composition, OfARollIsWhiteToItsEndWhereDrawingReachesFurtherThanMeasuring) {
    int further = 0;
    for (const int rotation : {30, 60, 150}) {
        for (int width = 1; width < 200; width += 2) {
            canvas = makeCanvas(300, -1, 96);
            setRows(*canvas, {{velnor::AbsoluteLength, 40}, {velnor::AutoLength, 0}});
            auto& item = addRectangle(*canvas, 70, 3, width, 20);
            item.row = 1;
            item.rotation = rotation;
            const QImage picture = composed();
            further += item.reachedY > qRound(item.boundingBox.bottom() + item.y - 3) ? 1 : 0;
            EXPECT_TRUE(isAllWhite(picture.copy(0, picture.height() - 2, 300, 2)))
                << rotation << " degrees, width " << width;
        }
    }
    EXPECT_GT(further, 0);
}

TEST_F(Composition, OfARollLongerThanAMetreIsTransparentBeyondIt) {
    canvas = makeCanvas(50, -1, 96);
    addRectangle(*canvas, 10, 3800, 20, 100);
    const QImage picture = composed().convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(picture.size(), QSize(50, 3908));
    EXPECT_EQ(qAlpha(picture.pixel(0, 3779)), 255);
    EXPECT_EQ(qAlpha(picture.pixel(0, 3780)), 0);
}

class HiddenValue : public Composition, public testing::WithParamInterface<int> {};

TEST_P(HiddenValue, HidesAnItemOnlyWhenItIsOne) {
    addRectangle(*canvas, 10, 20, 50, 30).hidden = GetParam();
    EXPECT_EQ(isAllWhite(composed()), GetParam() == 1);
}

INSTANTIATE_TEST_SUITE_P(Composition, HiddenValue, testing::Values(0, 1, 2, -1));

TEST_F(Composition, DoesNotCountAHiddenItem) {
    canvas = makeCanvas(100, -1, 203);
    auto& hidden = addRectangle(*canvas, 10, 300, 50, 100);
    hidden.hidden = 1;
    addRectangle(*canvas, 10, 20, 50, 30);
    EXPECT_EQ(composed().height(), 50 + 16);
    EXPECT_EQ(hidden.boundingBox, QRectF(0, 0, 0, 0));
    EXPECT_EQ(hidden.reachedY, -1);
}

TEST_F(Composition, SizesAutomaticEntriesByAHiddenItemsOffsetAlone) {
    setRows(*canvas, {{velnor::AutoLength, 0}, {velnor::AutoLength, 0}});
    setColumns(*canvas, {{velnor::AutoLength, 0}});
    auto& hidden = addRectangle(*canvas, 25, 35, 50, 100);
    hidden.hidden = 1;
    auto& below = addRectangle(*canvas, 0, 0, 20, 10);
    below.row = 1;
    compose(*canvas);
    EXPECT_EQ(canvas->rows[0].size, 35);
    EXPECT_EQ(canvas->columns[0].size, 25);
    EXPECT_EQ(below.y, 35);
}

TEST_F(Composition, RecordsWhatEachItemCoversAndReaches) {
    auto& low = addRectangle(*canvas, 10, 100, 50, 30);
    auto& high = addRectangle(*canvas, 20, 5, 60, 40);
    compose(*canvas);
    EXPECT_EQ(low.boundingBox, QRectF(10, 100, 50, 30));
    EXPECT_EQ(high.boundingBox, QRectF(20, 5, 60, 40));
    EXPECT_EQ(low.reachedY, 130);
    EXPECT_EQ(high.reachedY, 45);
}

TEST_F(Composition, DrawsItemsWhereTheirCellsAndAnchorsPutThem) {
    setRows(*canvas, {{velnor::AbsoluteLength, 50}, {velnor::AbsoluteLength, 150}});
    setColumns(*canvas, {{velnor::AbsoluteLength, 100}, {velnor::ProportionalLength, 1}});
    auto& item = addRectangle(*canvas, 0, 0, 60, 40);
    item.row = item.column = 1;
    item.anchor = velnor::AnchorBottom | velnor::AnchorRight;
    item.xr = 10;
    item.yb = 20;
    const QImage picture = composed();
    EXPECT_EQ(item.x, 300 - 10 - 60);
    EXPECT_EQ(item.y, 200 - 20 - 40);
    EXPECT_EQ(item.drawnBox, QRectF(item.x, item.y, 60, 40));
    EXPECT_EQ(inkOf(picture), QRect(item.x - 1, item.y - 1, 62, 42));
}

TEST_F(Composition, DrawsItemsOutsideTheGridAtItsEnd) {
    setRows(*canvas, {{velnor::AbsoluteLength, 50}});
    setColumns(*canvas, {{velnor::AbsoluteLength, 100}});
    auto& item = addRectangle(*canvas, 5, 6, 60, 40);
    item.row = item.column = 9;
    EXPECT_EQ(inkOf(composed()), QRect(104, 55, 62, 42));
}

TEST_F(Composition, DrawsInDocumentOrder) {
    auto& black = addItem<VelnorDrawableLine>(*canvas, 0, 10, 100, 20);
    black.thickness = 20;
    black.length = 100;
    const QImage white = whiteSurface(30, 30);
    ASSERT_TRUE(white.save(folder.path(QStringLiteral("white.png"))));
    auto& cover = addItem<VelnorDrawableImage>(*canvas, 20, 5, -1, -1);
    cover.filepath = folder.path(QStringLiteral("white.png"));
    const QImage picture = composed();
    EXPECT_EQ(picture.pixel(10, 20), 0xff000000);
    EXPECT_EQ(picture.pixel(30, 20), 0xffffffff);
}

TEST_F(Composition, TakesAnUnknownKindAsWhatThePreviousDrawingCovered) {
    auto& first = addItem<VelnorDrawableElement>(*canvas);
    addRectangle(*canvas, 10, 20, 50, 30);
    auto& second = addItem<VelnorDrawableElement>(*canvas);
    second.type = 99;
    compose(*canvas);
    EXPECT_EQ(first.boundingBox, QRectF(0, 0, 0, 0));
    EXPECT_EQ(first.reachedY, 0);
    EXPECT_EQ(second.boundingBox, QRectF(10, 20, 50, 30));
    EXPECT_EQ(second.reachedY, 50);
}

TEST_F(Composition, MeasuringAloneMovesNothing) {
    setRows(*canvas, {{velnor::AbsoluteLength, 50}, {velnor::AbsoluteLength, 150}});
    auto& item = addRectangle(*canvas, 10, 20, 50, 30);
    item.row = 1;
    const QByteArray output = outputPath().toUtf8();
    EXPECT_EQ(VelnorImage::CalculateBoundingBoxForItems(canvas.get(), output.constData()), 0);
    EXPECT_EQ(item.boundingBox, QRectF(10, 20, 50, 30));
    EXPECT_EQ(item.y, 20);
    EXPECT_EQ(item.reachedY, -1);
    EXPECT_EQ(folder.files(), QStringList());
}

TEST_F(Composition, WithoutAnItemListIsWhite) {
    canvas->items.reset();
    EXPECT_TRUE(samePicture(composed(), whiteSurface(300, 200)));
}

TEST_F(Composition, FindsAnItemById) {
    auto& first = addItem<VelnorDrawableLine>(*canvas);
    auto& second = addItem<VelnorDrawableLine>(*canvas);
    addItem<VelnorDrawableLine>(*canvas).id = QStringLiteral("same");
    first.id = QStringLiteral("Same");
    second.id = QStringLiteral("same");
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QStringLiteral("same")), &second);
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QStringLiteral("Same")), &first);
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QStringLiteral("none")), nullptr);
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QString()), nullptr);
    canvas->items.reset();
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QStringLiteral("same")), nullptr);
}

TEST_F(Composition, FindsNoItemByAnEmptyIdEvenWhereOneHasIt) {
    addItem<VelnorDrawableLine>(*canvas);
    EXPECT_EQ(VelnorImage::GetElemFromId(canvas.get(), QLatin1String("")), nullptr);
}

} // namespace
