// The same canvas gives the same bytes, whatever the process drew before.
#include "render/velnorimage.h"
#include "support/compositions.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"
#include "support/zint_pictures.h"

#include <random>

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

// Large letters beside small ones of the same face, some of which move into their cells.
class LargeLetters : public Composition {
protected:
    LargeLetters() { registerTextFonts(); }

    static void addText(VelnorDrawableCanvas& ticket, std::mt19937& random, int fontsize) {
        const auto upTo = [&random](unsigned count) { return static_cast<int>(random() % count); };
        auto& text = addItem<VelnorDrawableText>(ticket, upTo(50), upTo(300), -1, -1);
        const QStringList words = {QStringLiteral("Ticket 4711"), QStringLiteral("WAVE To"),
                                   QStringLiteral("Quay 7"), QStringLiteral("minimum")};
        text.text = words[upTo(4)];
        text.fontname = textFamily();
        text.fontsize = fontsize;
        text.antialias = true;
        text.column = upTo(3);
        text.anchor = velnor::AnchorTop | velnor::AnchorHorizontalCentre;
        if (upTo(2) == 0) {
            text.width = 150 + upTo(250);
            text.flags = Qt::AlignHCenter;
        }
    }
    static CanvasPointer ticket(unsigned seed) {
        std::mt19937 random(seed);
        auto ticket = makeCanvas(900, 500, 203);
        setColumns(*ticket, {{velnor::ProportionalLength, 2},
                             {velnor::ProportionalLength, 1},
                             {velnor::AbsoluteLength, 33}});
        for (const int fontsize : {7, 36, 9, 11, 44, 13}) {
            addText(*ticket, random, fontsize);
        }
        return ticket;
    }
    QByteArray bytesOfTicket(unsigned seed) const {
        compose(*ticket(seed));
        return outputBytes();
    }
};

TEST_F(LargeLetters, AreTheSameWhateverSmallLettersWereDrawnBefore) {
    constexpr unsigned Tickets = 30;
    std::vector<QByteArray> first;
    for (unsigned seed = 0; seed < Tickets; ++seed) {
        first.push_back(bytesOfTicket(seed));
    }
    for (unsigned i = 0; i < 2 * Tickets; ++i) {
        const unsigned seed = i * 7 % Tickets;
        EXPECT_TRUE(bytesOfTicket(seed) == first[seed]) << seed;
    }
}

} // namespace
