// Each kind of item in a composition: what is handed to which drawing operation.
#include "render/velnorbarcode.h"
#include "render/velnorimage.h"
#include "support/compositions.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"
#include "support/zint_pictures.h"

namespace {

constexpr QPoint Position(100, 90);

// Adds an item at that position.
using MakeItem = void (*)(VelnorDrawableCanvas&, const ScratchFolder&, int rotation);

void addImage(VelnorDrawableCanvas& canvas, const ScratchFolder& folder, int rotation) {
    auto& item = addItem<VelnorDrawableImage>(canvas, 100, 90, 120, 80);
    item.filepath = writePicture(folder, QStringLiteral("p.png"), colourfulPicture(40, 40));
    item.scalex = 50;
    item.scaley = 70;
    item.aspect = 2;
    item.rotation = rotation;
}

void addText(VelnorDrawableCanvas& canvas, const ScratchFolder&, int rotation) {
    auto& item = addItem<VelnorDrawableText>(canvas, 100, 90, 150, 60);
    item.text = QStringLiteral("Ticket 4711");
    item.fontname = textFamily();
    item.fontsize = 14;
    item.bold = true;
    item.flags = Qt::AlignRight | Qt::AlignBottom;
    item.rotation = rotation;
}

void addBarcode(VelnorDrawableCanvas& canvas, const ScratchFolder&, int rotation) {
    auto& item = addItem<VelnorDrawableBarcode>(canvas, 100, 90, 170, 60);
    item.barcodeType = BARCODE_CODE128;
    item.text = QStringLiteral("\u00fc\\t7");
    item.hrt = 1;
    item.rotation = rotation;
}

void addRectangle(VelnorDrawableCanvas& canvas, const ScratchFolder&, int rotation) {
    auto& item = addItem<VelnorDrawableRectangle>(canvas, 100, 90, 120, 60);
    item.thickness = 3;
    item.style = 1;
    item.radius = 15;
    item.rotation = rotation;
}

void addEllipse(VelnorDrawableCanvas& canvas, const ScratchFolder&, int rotation) {
    auto& item = addItem<VelnorDrawableEllipse>(canvas, 100, 90, 120, 60);
    item.thickness = 3;
    item.style = 1;
    item.rotation = rotation;
}

void addLine(VelnorDrawableCanvas& canvas, const ScratchFolder&, int rotation) {
    auto& item = addItem<VelnorDrawableLine>(canvas, 100, 90, 20, 10);
    item.thickness = 4;
    item.style = 1;
    item.length = 130;
    item.rotation = rotation;
}

// The same item drawn by the operation of its kind alone, at 203 dots per inch.
using DrawItem = void (*)(VelnorImage&, const ScratchFolder&, QPoint at, int rotation);

void drawImage(VelnorImage& surface, const ScratchFolder& folder, QPoint at, int rotation) {
    surface.DrawOverlayImage(folder.path(QStringLiteral("p.png")), at.x(), at.y(), 50, 70, 120, 80,
                             rotation, 2);
}

void drawText(VelnorImage& surface, const ScratchFolder&, QPoint at, int rotation) {
    surface.SetFont(textFamily(), 14, 203, true, false, false);
    surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711"), at.x(), at.y(), 150, 60,
                                       Qt::AlignRight | Qt::AlignBottom, rotation);
}

void drawBarcode(VelnorImage& surface, const ScratchFolder&, QPoint at, int rotation) {
    const int absent = velnor::BarcodeOptionNotGiven;
    QImage symbol;
    VelnorBarcode().CreateBarcode(BARCODE_CODE128, 1, "\xc3\xbc\\t7", UNICODE_MODE, "", absent,
                                  absent, absent, &symbol, 170, 60);
    surface.DrawOverlayPicture(symbol, at.x(), at.y(), 100, 100, -1, -1, rotation, 0);
}

void drawRectangle(VelnorImage& surface, const ScratchFolder&, QPoint at, int rotation) {
    surface.DrawOverlayRectangle(at.x(), at.y(), 120, 60, rotation, 3, 1, 15, false);
}

void drawEllipse(VelnorImage& surface, const ScratchFolder&, QPoint at, int rotation) {
    surface.DrawOverlayEllipse(at.x(), at.y(), 120, 60, rotation, 3, 1, false);
}

void drawLine(VelnorImage& surface, const ScratchFolder&, QPoint at, int rotation) {
    surface.DrawOverlayLine(at.x(), at.y(), 20, 10, rotation, 4, 1, 130, false);
}

struct KindRow : Row {
    MakeItem add;
    DrawItem draw;
};

class ItemKind : public Composition, public testing::WithParamInterface<KindRow> {
protected:
    ItemKind() { registerTextFonts(); }

    // The composition of an item whose rotation is `given` is the operation's drawing at `angle`,
    // at the place that brings the top left corner of what it covers to the item's position.
    void expectDrawnAt(int given, int angle) {
        canvas = makeCanvas(300, 300, 203);
        GetParam().add(*canvas, folder, given);
        const QImage picture = composed();
        VelnorImage measured(300, 300);
        GetParam().draw(measured, folder, Position, angle);
        const QRectF covered = measured.lastBoundingRect();
        const QPoint start(qRound(covered.x()), qRound(covered.y()));
        VelnorImage surface(300, 300);
        GetParam().draw(surface, folder, Position + (Position - start), angle);
        EXPECT_FALSE(isAllWhite(*surface.picture()));
        EXPECT_TRUE(samePicture(picture, *surface.picture()));
        EXPECT_EQ(canvas->items->front()->boundingBox, covered);
        EXPECT_EQ(canvas->items->front()->reachedY, surface.getCurrentY());
    }
};

TEST_P(ItemKind, IsDrawnAsItsFieldsSay) {
    expectDrawnAt(0, 0);
}

TEST_P(ItemKind, IsTurnedByItsRotation) {
    expectDrawnAt(90, 90);
}

TEST_P(ItemKind, IsUprightWithoutARotation) {
    expectDrawnAt(-1, 0);
}

TEST_P(ItemKind, IsUprightForARotationThatIsNoNumber) {
    expectDrawnAt(-361, 0);
}

INSTANTIATE_TEST_SUITE_P(Composition, ItemKind,
                         testing::Values(KindRow{{"Image"}, addImage, drawImage},
                                         KindRow{{"Text"}, addText, drawText},
                                         KindRow{{"Barcode"}, addBarcode, drawBarcode},
                                         KindRow{{"Rectangle"}, addRectangle, drawRectangle},
                                         KindRow{{"Ellipse"}, addEllipse, drawEllipse},
                                         KindRow{{"Line"}, addLine, drawLine}),
                         RuleAsName());

struct AntialiasRow : Row {
    int canvasMode;
    bool itemFlag;
    bool antialiased;
};

class Antialias : public Composition, public testing::WithParamInterface<AntialiasRow> {
protected:
    Antialias() { registerTextFonts(); }
};

TEST_P(Antialias, FollowsTheCanvasOrTheItem) {
    EXPECT_EQ(VelnorImage::getAntialias(GetParam().itemFlag, GetParam().canvasMode),
              GetParam().antialiased);
}

TEST_P(Antialias, OfTextUsesTheTextModeAndTheItemsFlag) {
    canvas->antialiasText = GetParam().canvasMode;
    addText(*canvas, folder, 0);
    static_cast<VelnorDrawableText&>(*canvas->items->front()).antialias = GetParam().itemFlag;
    const QImage picture = composed();
    EXPECT_FALSE(isAllWhite(picture));
    EXPECT_EQ(hasGrey(picture), GetParam().antialiased);
}

INSTANTIATE_TEST_SUITE_P(
    Composition, Antialias,
    testing::Values(AntialiasRow{{"ModeZeroIsNever"}, 0, true, false},
                    AntialiasRow{{"ModeZeroIsNeverForPlainItems"}, 0, false, false},
                    AntialiasRow{{"ModeOneIsAlways"}, 1, false, true},
                    AntialiasRow{{"ModeOneIsAlwaysForFlaggedItems"}, 1, true, true},
                    AntialiasRow{{"ModeTwoFollowsASetFlag"}, 2, true, true},
                    AntialiasRow{{"ModeTwoFollowsAClearFlag"}, 2, false, false},
                    AntialiasRow{{"OtherModeFollowsASetFlag"}, 3, true, true},
                    AntialiasRow{{"OtherModeFollowsAClearFlag"}, -1, false, false}),
    RuleAsName());

struct ShapeModeRow : Row {
    int canvasMode;
    bool antialiased;
};

class ShapeAntialias : public Composition, public testing::WithParamInterface<ShapeModeRow> {};

TEST_P(ShapeAntialias, IsOnInModeOneAlone) {
    for (const MakeItem add : {addRectangle, addEllipse, addLine}) {
        canvas = makeCanvas(300, 300);
        canvas->antialiasShape = GetParam().canvasMode;
        canvas->antialiasText = 1 - GetParam().canvasMode;
        add(*canvas, folder, 33);
        const QImage picture = composed();
        EXPECT_FALSE(isAllWhite(picture));
        EXPECT_EQ(hasGrey(picture), GetParam().antialiased);
    }
}

INSTANTIATE_TEST_SUITE_P(Composition, ShapeAntialias,
                         testing::Values(ShapeModeRow{{"ModeZero"}, 0, false},
                                         ShapeModeRow{{"ModeOne"}, 1, true},
                                         ShapeModeRow{{"ModeTwo"}, 2, false},
                                         ShapeModeRow{{"OtherMode"}, 3, false}),
                         RuleAsName());

TEST_F(Composition, GivesEachTextItsOwnFont) {
    registerTextFonts();
    canvas = makeCanvas(300, 300, 203);
    addBarcode(*canvas, folder, 0);
    addText(*canvas, folder, 0);
    auto& second = addItem<VelnorDrawableText>(*canvas, 10, 200, -1, -1);
    second.text = QStringLiteral("Ticket");
    second.fontname = textFamily();
    second.fontsize = 10;
    second.italic = true;
    const QImage picture = composed();
    VelnorImage surface(300, 300);
    drawBarcode(surface, folder, Position, 0);
    drawText(surface, folder, Position, 0);
    surface.SetFont(textFamily(), 10, 203, false, true, false);
    surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket"), 10, 200, -1, -1, 0, 0);
    EXPECT_TRUE(samePicture(picture, *surface.picture()));
}

TEST_F(Composition, RecordsTheSizeOnPaperThatATextWasDrawnIn) {
    registerTextFonts();
    canvas = makeCanvas(300, 300, 192);
    addText(*canvas, folder, 0);
    auto& text = static_cast<VelnorDrawableText&>(*canvas->items->front());
    text.width = text.height = -1;
    compose(*canvas);
    EXPECT_EQ(text.drawnFontSize, 14);
}

TEST_F(Composition, RecordsTheSizeThatATextHasShrunkTo) {
    registerTextFonts();
    addText(*canvas, folder, 0);
    auto& text = static_cast<VelnorDrawableText&>(*canvas->items->front());
    text.width = 40;
    compose(*canvas);
    EXPECT_LT(text.drawnFontSize, 14);
    EXPECT_GT(text.drawnFontSize, 2);
}

} // namespace
