#include "document/elements.h"

#include "support/printing.h"
#include "support/rows.h"

#include <memory>

namespace {

template <typename Record>
class EveryRecord : public testing::Test {};

using Records = testing::Types<VelnorDrawableElement, VelnorDrawableCanvas, VelnorDrawableImage,
                               VelnorDrawableText, VelnorDrawableBarcode, VelnorDrawableRectangle,
                               VelnorDrawableEllipse, VelnorDrawableLine>;
TYPED_TEST_SUITE(EveryRecord, Records);

void expectEmptyNotNull(const QString& text) {
    EXPECT_EQ(text, QLatin1String(""));
    EXPECT_FALSE(text.isNull());
}

// A text that knows, by its reference count, whether somebody else still holds it.
QString watchedText() {
    return QString(20, QLatin1Char('w'));
}

velnor::ElementPointer imageHolding(const QString& text) {
    auto image = std::make_unique<VelnorDrawableImage>();
    image->id = text;
    image->filepath = text;
    return velnor::ElementPointer(image.release());
}

velnor::ElementPointer textHolding(const QString& text) {
    auto item = std::make_unique<VelnorDrawableText>();
    item->id = text;
    item->text = text;
    item->fontname = text;
    return velnor::ElementPointer(item.release());
}

velnor::ElementPointer barcodeHolding(const QString& text) {
    auto barcode = std::make_unique<VelnorDrawableBarcode>();
    barcode->id = text;
    barcode->text = text;
    barcode->primary = text;
    return velnor::ElementPointer(barcode.release());
}

template <typename Record>
velnor::ElementPointer holding(const QString& text) {
    auto record = std::make_unique<Record>();
    record->id = text;
    return velnor::ElementPointer(record.release());
}

velnor::ElementPointer unknownKindHolding(const QString& text) {
    velnor::ElementPointer element = holding<VelnorDrawableElement>(text);
    element->type = 99;
    return element;
}

struct OwnerRow : Row {
    velnor::ElementPointer (*make)(const QString& text);
};

class ItemDestruction : public testing::TestWithParam<OwnerRow> {};

const OwnerRow Owners[] = {
    {"AnImageReleasesItsTexts", imageHolding},
    {"ATextReleasesItsTexts", textHolding},
    {"ABarcodeReleasesItsTexts", barcodeHolding},
    {"ARectangleReleasesItsId", holding<VelnorDrawableRectangle>},
    {"AnEllipseReleasesItsId", holding<VelnorDrawableEllipse>},
    {"ALineReleasesItsId", holding<VelnorDrawableLine>},
    {"AnUnspecialisedElementReleasesItsId", holding<VelnorDrawableElement>},
    {"AnElementOfAnUnknownKindReleasesItsId", unknownKindHolding},
};

std::unique_ptr<velnor::ElementList> oneOfEachKind(const QString& text) {
    auto items = std::make_unique<velnor::ElementList>();
    for (const OwnerRow& owner : Owners) {
        items->push_back(owner.make(text));
    }
    return items;
}

} // namespace

TYPED_TEST(EveryRecord, StartsWithTheCommonDefaults) {
    const TypeParam record;
    EXPECT_EQ(record.x, 0);
    EXPECT_EQ(record.y, 0);
    EXPECT_EQ(record.width, -1);
    EXPECT_EQ(record.height, -1);
    EXPECT_EQ(record.anchor, 5);
    EXPECT_EQ(record.xr, 0);
    EXPECT_EQ(record.yb, 0);
    expectEmptyNotNull(record.id);
    EXPECT_EQ(record.column, 0);
    EXPECT_EQ(record.row, 0);
    EXPECT_EQ(record.rowspan, 1);
    EXPECT_EQ(record.columnspan, 1);
    EXPECT_EQ(record.hidden, 0);
    EXPECT_EQ(record.reachedY, -1);
    EXPECT_EQ(record.boundingBox, QRectF(0, 0, 0, 0));
}

TEST(RecordKinds, AreToldByTheirType) {
    EXPECT_EQ(VelnorDrawableElement().type, -1);
    EXPECT_EQ(VelnorDrawableCanvas().type, 0);
    EXPECT_EQ(VelnorDrawableImage().type, 1);
    EXPECT_EQ(VelnorDrawableText().type, 2);
    EXPECT_EQ(VelnorDrawableBarcode().type, 3);
    EXPECT_EQ(VelnorDrawableRectangle().type, 4);
    EXPECT_EQ(VelnorDrawableEllipse().type, 5);
    EXPECT_EQ(VelnorDrawableLine().type, 6);
}

TEST(RecordDefaults, OfAnImage) {
    const VelnorDrawableImage image;
    expectEmptyNotNull(image.filepath);
    EXPECT_EQ(image.rotation, -1);
    EXPECT_EQ(image.scalex, 100);
    EXPECT_EQ(image.scaley, 100);
    EXPECT_EQ(image.aspect, 0);
}

TEST(RecordDefaults, OfAText) {
    const VelnorDrawableText text;
    expectEmptyNotNull(text.text);
    EXPECT_EQ(text.rotation, -1);
    EXPECT_EQ(text.flags, 0);
    expectEmptyNotNull(text.fontname);
    EXPECT_EQ(text.fontsize, 0);
    EXPECT_FALSE(text.bold);
    EXPECT_FALSE(text.italic);
    EXPECT_FALSE(text.antialias);
}

TEST(RecordDefaults, OfABarcode) {
    const VelnorDrawableBarcode barcode;
    expectEmptyNotNull(barcode.text);
    EXPECT_EQ(barcode.barcodeType, -1);
    EXPECT_EQ(barcode.rotation, -1);
    EXPECT_EQ(barcode.hrt, 0);
    EXPECT_EQ(barcode.inputmode, 1);
    expectEmptyNotNull(barcode.primary);
    EXPECT_EQ(barcode.option1, 0x5A5A5A5A);
    EXPECT_EQ(barcode.option2, 1515870810);
    EXPECT_EQ(barcode.option3, 1515870810);
}

TEST(RecordDefaults, OfARectangle) {
    const VelnorDrawableRectangle rectangle;
    EXPECT_EQ(rectangle.rotation, -1);
    EXPECT_EQ(rectangle.thickness, 0);
    EXPECT_EQ(rectangle.style, 0);
    EXPECT_EQ(rectangle.radius, 0);
}

TEST(RecordDefaults, OfAnEllipse) {
    const VelnorDrawableEllipse ellipse;
    EXPECT_EQ(ellipse.rotation, -1);
    EXPECT_EQ(ellipse.thickness, 0);
    EXPECT_EQ(ellipse.style, 0);
}

TEST(RecordDefaults, OfALine) {
    const VelnorDrawableLine line;
    EXPECT_EQ(line.rotation, -1);
    EXPECT_EQ(line.thickness, 0);
    EXPECT_EQ(line.style, 0);
    EXPECT_EQ(line.length, -1);
}

TEST(RecordDefaults, OfACanvas) {
    const VelnorDrawableCanvas canvas;
    EXPECT_EQ(canvas.items, nullptr);
    EXPECT_EQ(canvas.dpi, 96);
    EXPECT_EQ(canvas.antialiasText, 2);
    EXPECT_EQ(canvas.antialiasShape, 0);
    EXPECT_EQ(canvas.rows, nullptr);
    EXPECT_EQ(canvas.rowCount, 0);
    EXPECT_EQ(canvas.columns, nullptr);
    EXPECT_EQ(canvas.columnCount, 0);
}

TEST(RecordDefaults, OfEveryRowAndColumnOfAnArrayAreZero) {
    const auto rows = std::make_unique<VelnorRowColumn[]>(3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[i].type, 0);
        EXPECT_EQ(rows[i].size, 0);
        EXPECT_EQ(rows[i].offset, 0);
    }
}

TEST_P(ItemDestruction, GivesEverythingBack) {
    const QString text = watchedText();
    velnor::ElementPointer item = GetParam().make(text);
    ASSERT_FALSE(text.isDetached());
    item.reset();
    EXPECT_TRUE(text.isDetached());
}

INSTANTIATE_TEST_SUITE_P(Elements, ItemDestruction, testing::ValuesIn(Owners), RuleAsName());

TEST(CanvasDestruction, ReleasesTheItemsOfEveryKindAndTheGrid) {
    const QString text = watchedText();
    auto canvas = std::make_unique<VelnorDrawableCanvas>();
    canvas->items = oneOfEachKind(text);
    canvas->rows = std::make_unique<VelnorRowColumn[]>(2);
    canvas->rowCount = 2;
    canvas->columns = std::make_unique<VelnorRowColumn[]>(3);
    canvas->columnCount = 3;
    ASSERT_FALSE(text.isDetached());
    canvas.reset();
    EXPECT_TRUE(text.isDetached());
}

TEST(CanvasDestruction, WithoutAnItemListReleasesTheGridAndTheId) {
    const QString text = watchedText();
    auto canvas = std::make_unique<VelnorDrawableCanvas>();
    canvas->id = text;
    canvas->rows = std::make_unique<VelnorRowColumn[]>(1);
    canvas->columns = std::make_unique<VelnorRowColumn[]>(1);
    ASSERT_FALSE(text.isDetached());
    canvas.reset();
    EXPECT_TRUE(text.isDetached());
}

TEST(PrintInfo, OfACanvasWithoutItemsChangesNothing) {
    const VelnorDrawableCanvas canvas;
    canvas.PrintInfo();
    EXPECT_EQ(canvas.items, nullptr);
}

TEST(PrintInfo, OfACanvasSkipsUnknownKindsAndWritesNothing) {
    VelnorDrawableCanvas canvas;
    canvas.items = oneOfEachKind(QStringLiteral("id"));
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    canvas.PrintInfo();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(canvas.items->size(), std::size(Owners));
}
