// Compositions of which a part cannot be drawn or written.
#include "render/velnorimage.h"
#include "support/compositions.h"
#include "support/peak_memory.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"
#include "support/white_surface.h"
#include "support/zint_pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int Highest = 2147483647;
constexpr long PermittedMegabytes = 700;

VelnorDrawableBarcode& addBarcode(VelnorDrawableCanvas& canvas, const QString& text) {
    auto& item = addItem<VelnorDrawableBarcode>(canvas, 30, 40, -1, -1);
    item.barcodeType = BARCODE_EANX;
    item.text = text;
    return item;
}

QString goodData() {
    return QStringLiteral("123456789012");
}

QString refusedData() {
    return QStringLiteral("no digits");
}

VelnorDrawableImage& addImage(VelnorDrawableCanvas& canvas, const QString& path) {
    auto& item = addItem<VelnorDrawableImage>(canvas, 30, 40, -1, -1);
    item.filepath = path;
    return item;
}

void addRectangle(VelnorDrawableCanvas& canvas) {
    addItem<VelnorDrawableRectangle>(canvas, 10, 20, 50, 30).thickness = 2;
}

TEST_F(Composition, LeavesNoBarcodeFile) {
    addBarcode(*canvas, goodData());
    EXPECT_FALSE(isAllWhite(composed()));
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("ticket.png")));
}

TEST_F(Composition, LeavesNoBarcodeFileEvenWhereAnOldOneStood) {
    for (const QString& data : {goodData(), refusedData()}) {
        canvas = makeCanvas(300, 200);
        addBarcode(*canvas, data);
        folder.write(QStringLiteral("ticket.png.BARCODE.PNG"), "old");
        compose(*canvas);
        EXPECT_FALSE(QFile::exists(barcodePath())) << data.toStdString();
    }
}

TEST_F(Composition, LeavesAnOldBarcodeFileWhereItDrawsNoBarcode) {
    addRectangle(*canvas);
    addBarcode(*canvas, goodData()).hidden = 1;
    folder.write(QStringLiteral("ticket.png.BARCODE.PNG"), "old");
    compose(*canvas);
    EXPECT_TRUE(QFile::exists(barcodePath()));
}

TEST_F(Composition, NeverDrawsAnOldBarcodeFile) {
    addBarcode(*canvas, refusedData());
    ASSERT_TRUE(colourfulPicture(50, 50).save(barcodePath(), "PNG"));
    EXPECT_TRUE(isAllWhite(composed()));
}

TEST_F(Composition, NeverFollowsALinkPlantedAsTheBarcodeFile) {
    const QString victim = folder.write(QStringLiteral("victim"), "precious");
    ASSERT_TRUE(QFile::link(victim, barcodePath()));
    addBarcode(*canvas, goodData());
    EXPECT_FALSE(isAllWhite(composed()));
    QFile file(victim);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "precious");
    EXPECT_FALSE(QFileInfo(barcodePath()).isSymLink());
}

TEST_F(Composition, SurvivesADirectoryInThePlaceOfTheBarcodeFile) {
    ASSERT_TRUE(QDir().mkpath(barcodePath()));
    addBarcode(*canvas, goodData());
    addRectangle(*canvas);
    EXPECT_FALSE(isAllWhite(composed()));
    EXPECT_TRUE(QFileInfo(barcodePath()).isDir());
}

TEST_F(Composition, DrawsABarcodeInItsNaturalSize) {
    auto& item = addBarcode(*canvas, goodData());
    item.width = 250;
    item.height = 60;
    ZintRequest request;
    request.type = BARCODE_EANX;
    request.data = "123456789012";
    request.scale = 1.0F;
    request.height = 30;
    const QImage symbol = zintPicture(request);
    const QImage picture = composed();
    EXPECT_TRUE(samePicture(picture.copy(QRect(QPoint(30, 40), symbol.size())), symbol));
    EXPECT_EQ(item.boundingBox, QRectF(QPointF(30, 40), symbol.size()));
}

TEST_F(Composition, DrawsTheFirstPictureWhereTheSecondEncodingIsRefused) {
    auto& item = addBarcode(*canvas, goodData());
    item.height = 5000;
    ZintRequest request;
    request.type = BARCODE_EANX;
    request.data = "123456789012";
    const QImage symbol = zintPicture(request);
    const QImage picture = composed();
    EXPECT_TRUE(samePicture(picture.copy(QRect(QPoint(30, 40), symbol.size())), symbol));
    EXPECT_EQ(item.boundingBox, QRectF(QPointF(30, 40), symbol.size()));
}

TEST_F(Composition, KeepsThePreviousRectangleForWhatCannotBeDrawn) {
    auto& first = addBarcode(*canvas, refusedData());
    addRectangle(*canvas);
    auto& barcode = addBarcode(*canvas, refusedData());
    auto& image = addImage(*canvas, folder.path(QStringLiteral("none.png")));
    const QImage picture = composed();
    EXPECT_EQ(first.boundingBox, QRectF(0, 0, 0, 0));
    EXPECT_EQ(first.reachedY, 0);
    EXPECT_EQ(barcode.boundingBox, QRectF(10, 20, 50, 30));
    EXPECT_EQ(image.boundingBox, QRectF(10, 20, 50, 30));
    EXPECT_EQ(image.reachedY, 50);
    EXPECT_EQ(inkOf(picture), QRect(9, 19, 52, 32));
}

TEST_F(Composition, IsWrittenEvenWhereItemsCannotBeDrawn) {
    const QtMessages messages;
    addBarcode(*canvas, QString());
    addImage(*canvas, folder.path(QStringLiteral("none.png")));
    addImage(*canvas, QString());
    addImage(*canvas, folder.write(QStringLiteral("garbage.png"), "garbage"));
    addImage(*canvas, folder.path(QStringLiteral(".")));
    EXPECT_TRUE(samePicture(composed(), whiteSurface(300, 200)));
    EXPECT_EQ(messages.heard(), "");
}

struct OutputRow : Row {
    const char* name; // inside the folder
};

class UnwritableOutput : public Composition, public testing::WithParamInterface<OutputRow> {};

TEST_P(UnwritableOutput, IsNotReported) {
    const QtMessages messages;
    addRectangle(*canvas);
    addBarcode(*canvas, goodData());
    const QByteArray output = folder.utf8Path(QString::fromLatin1(GetParam().name));
    EXPECT_EQ(VelnorImage::CreateImageFromCanvas(canvas.get(), output.constData()), 0);
    EXPECT_EQ(folder.files(), QStringList());
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(Composition, UnwritableOutput,
                         testing::Values(OutputRow{{"InAMissingFolder"}, "none/ticket.png"},
                                         OutputRow{{"OfAnUnknownSuffix"}, "ticket.unknown"},
                                         OutputRow{{"WithoutASuffix"}, "ticket"},
                                         OutputRow{{"OnTheFolderItself"}, "."}),
                         RuleAsName());

struct SizeRow : Row {
    int width;
    int height;
    int dpi;
};

class CanvasWithoutASurface : public Composition, public testing::WithParamInterface<SizeRow> {
protected:
    CanvasWithoutASurface() {
        registerTextFonts();
        canvas = makeCanvas(GetParam().width, GetParam().height, GetParam().dpi);
        addRectangle(*canvas);
        addBarcode(*canvas, goodData());
        addImage(*canvas, writePicture(folder, QStringLiteral("p.png"), colourfulPicture(9, 9)));
        auto& text = addItem<VelnorDrawableText>(*canvas, 1, 2, 30, 40);
        text.text = QStringLiteral("Ticket");
        text.fontname = textFamily();
        text.fontsize = 10;
    }
};

TEST_P(CanvasWithoutASurface, WritesNoFileAndSaysNothing) {
    const PeakMemory memory;
    const QtMessages messages;
    EXPECT_TRUE(composed().isNull());
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("p.png")));
    EXPECT_EQ(canvas->items->front()->boundingBox, QRectF(0, 0, 0, 0));
    EXPECT_EQ(canvas->items->front()->reachedY, 0);
    EXPECT_EQ(messages.heard(), "");
    EXPECT_LT(memory.risenMegabytes(), PermittedMegabytes);
}

TEST_P(CanvasWithoutASurface, WritesItsMarginsInWhite) {
    const QtMessages messages;
    canvas->x = 11;
    canvas->y = 12;
    canvas->xr = 13;
    canvas->yb = 14;
    EXPECT_TRUE(samePicture(composed(), whiteSurface(24, 26)));
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(Composition, CanvasWithoutASurface,
                         testing::Values(SizeRow{{"WidthNotGiven"}, -1, 100, 203},
                                         SizeRow{{"WidthNotGivenOnAGrowingRoll"}, -1, -1, 203},
                                         SizeRow{{"WidthOfZero"}, 0, 100, 203},
                                         SizeRow{{"HeightOfZero"}, 100, 0, 203},
                                         SizeRow{{"NegativeWidth"}, -50, 100, 203},
                                         SizeRow{{"NegativeHeight"}, 100, -50, 203},
                                         SizeRow{{"RollOfNoResolution"}, 100, -1, 0},
                                         SizeRow{{"RollOfANegativeResolution"}, 100, -1, -203},
                                         SizeRow{{"RollOfTheHighestResolution"}, 100, -1, Highest},
                                         SizeRow{{"BeyondTheLimit"}, 16000, 16001, 203},
                                         SizeRow{{"HighestSize"}, Highest, Highest, 203}),
                         RuleAsName());

} // namespace
