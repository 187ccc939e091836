// The same canvas gives the same bytes, whatever the process drew before.
#include "render/velnorimage.h"
#include "support/compositions.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"
#include "support/zint_pictures.h"

namespace {

struct TextRow : Row {
    int fontsize;
    int rotation;
    int flags;
};

class RepeatedComposition : public Composition, public testing::WithParamInterface<TextRow> {
protected:
    RepeatedComposition() { registerTextFonts(); }

    CanvasPointer ticket() const {
        auto ticket = makeCanvas(576, 900, 203);
        ticket->antialiasText = 1;
        auto& text = addItem<VelnorDrawableText>(*ticket, 200, 300, 350, 150);
        text.text = QStringLiteral("Ticket 4711 to Hamburg");
        text.fontname = textFamily();
        text.fontsize = GetParam().fontsize;
        text.rotation = GetParam().rotation;
        text.flags = GetParam().flags;
        text.anchor = velnor::AnchorVerticalCentre | velnor::AnchorHorizontalCentre;
        auto& code = addItem<VelnorDrawableBarcode>(*ticket, 10, 10, 300, 100);
        code.barcodeType = BARCODE_CODE128;
        code.text = QStringLiteral("4711");
        code.rotation = GetParam().rotation;
        return ticket;
    }
    QByteArray bytesOfTicket() const {
        compose(*ticket());
        return outputBytes();
    }
    // Fills Qt's cache of glyphs with other positions, sizes and turns of the same letters.
    void drawOtherTexts() const {
        VelnorImage surface(600, 600);
        for (int i = 1; i < 30; ++i) {
            surface.SetFont(textFamily(), i * 3, 203, i % 2 == 0, false, true);
            surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711 to Hamburg"), i, 7 * i,
                                               -1, -1, 0, i * 11);
        }
    }
};

TEST_P(RepeatedComposition, GivesTheSameBytes) {
    const QtMessages messages;
    const QByteArray first = bytesOfTicket();
    ASSERT_FALSE(first.isEmpty());
    EXPECT_TRUE(bytesOfTicket() == first);
    drawOtherTexts();
    EXPECT_TRUE(bytesOfTicket() == first);
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(Composition, RepeatedComposition,
                         testing::Values(TextRow{{"SmallUprightText"}, 8, 0, 0},
                                         TextRow{{"LargeText"}, 40, 0, 0},
                                         TextRow{{"WrappedText"}, 20, 0, Qt::TextWordWrap},
                                         TextRow{{"TurnedText"}, 12, 33, 0},
                                         TextRow{{"LargeTurnedText"}, 40, 33, Qt::AlignCenter}),
                         RuleAsName());

} // namespace
