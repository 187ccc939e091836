// Letters that are pictures are not drawn at any size.
#include "library_limits.h"
#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"

#include <QFontDatabase>

namespace {

constexpr int Largest = velnor::MaximumPicturedLetter * 72 / 96; // points

// A square of a font without outlines: the one as its font has it, the other as the only font that has
// it draws it in texts of other fonts.
const QString Picture = QStringLiteral("A");
const QString PictureAmongOutlines = QStringLiteral("l\U0010fffd");

// White space and marks without a shape are no pictures.
const QString Outlines = QStringLiteral("l \t\n\u200b\ufe0fl");

struct LettersRow : Row {
    bool isPicturedFont;
    QString text;
    int points;
    bool isDrawn;
};

class PicturedLetters : public testing::TestWithParam<LettersRow> {
protected:
    PicturedLetters() {
        registerTextFonts();
        pictured = QFontDatabase::addApplicationFont(
            QStringLiteral(VELNOR_TEST_FONTS "/pictured/Pictured.ttf"));
        QFont::cleanup();
    }
    ~PicturedLetters() override {
        QFontDatabase::removeApplicationFont(pictured);
        QFont::cleanup();
    }

    const QtMessages messages;
    int pictured;
};

TEST_P(PicturedLetters, AreDrawnUpToTheLimitOfTheirFont) {
    const LettersRow& row = GetParam();
    VelnorImage surface(2000, 900);
    surface.SetFont(row.isPicturedFont ? QStringLiteral("Pictured") : textFamily(), row.points, 96,
                    false, false, false);
    EXPECT_EQ(surface.DrawOverlayRectBoundedText(row.text, 10, 10, -1, -1, 0, 0), 0);
    EXPECT_EQ(inkDots(*surface.picture()) > 0, row.isDrawn);
    EXPECT_GT(surface.lastBoundingRect().height(), row.points);
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Text, PicturedLetters,
    testing::Values(
        LettersRow{{"Picture"}, true, Picture, Largest, true},
        LettersRow{{"LargerPicture"}, true, Picture, Largest + 1, false},
        LettersRow{{"HugePicture"}, true, Picture, 16000, false},
        LettersRow{{"PictureOfAnotherFont"}, false, PictureAmongOutlines, Largest, true},
        LettersRow{{"LargerPictureOfAnotherFont"}, false, PictureAmongOutlines, Largest + 1, false},
        LettersRow{{"OutlinesBeyondTheLimit"}, false, Outlines, Largest * 2, true}),
    RuleAsName());

} // namespace
