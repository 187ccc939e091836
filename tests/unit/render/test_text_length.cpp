// Texts of any length: what can be seen is drawn, and what would take too long is not.
#include "library_limits.h"
#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"

namespace {

constexpr int Wraps = Qt::TextWordWrap;
constexpr int WrapsAtTheBottom = Wraps | Qt::AlignBottom;
constexpr int None = -1;

QString repeated(const char* words, int length) {
    const QString once = QString::fromLatin1(words);
    return once.repeated(length / once.size() + 1).left(length);
}

struct LongTextRow : Row {
    const char* words;
    int length;
    int points;
    int width;
    int height;
    int flags;
};

class LongText : public testing::TestWithParam<LongTextRow> {
protected:
    LongText() { registerTextFonts(); }

    int draw() {
        const LongTextRow& row = GetParam();
        surface.SetFont(textFamily(), row.points, 96, false, false, false);
        return surface.DrawOverlayRectBoundedText(repeated(row.words, row.length), 0, 0, row.width,
                                                  row.height, row.flags, 0);
    }
    void TearDown() override { EXPECT_EQ(messages.heard(), ""); }

    const QtMessages messages;
    VelnorImage surface{600, 16000};
};

class LongTextThatFits : public LongText {};

TEST_P(LongTextThatFits, IsDrawnToItsEnd) {
    EXPECT_EQ(draw(), 0);
    const int end = std::min(surface.getCurrentY(), surface.picture()->height());
    EXPECT_NEAR(inkOf(*surface.picture()).bottom(), end, GetParam().points * 3);
    EXPECT_GT(surface.lastTextSize(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Text, LongTextThatFits,
    testing::Values(
        LongTextRow{{"OneUnitMoreThan16384"}, "terms ", 16385, 4, 200, None, Wraps},
        LongTextRow{{"InAWidth"}, "terms apply ", 100000, 8, 600, None, Wraps},
        LongTextRow{{"InARectangle"}, "terms ", 100000, 4, 600, 2400, WrapsAtTheBottom},
        LongTextRow{{"InARectangleAfterShrinking"}, "a ", 60000, 100, 500, 800, WrapsAtTheBottom},
        LongTextRow{{"InLines"}, "terms and conditions\n", 21000, 8, None, None, 0},
        LongTextRow{{"InOneLine"}, "terms ", 100000, 8, None, None, 0},
        LongTextRow{{"OfLargeLettersInOneLine"}, "terms ", 400000, 48, None, None, 0},
        LongTextRow{{"OfLargeLetters"}, "terms ", 400000, 48, 600, None, Wraps},
        LongTextRow{{"BrokenAnywhere"}, "m", 500000, 48, 600, None, 0x2000},
        LongTextRow{
            {"OfTheGreatestLength"}, "terms ", velnor::MaximumTextLength, 4, 600, None, Wraps}),
    RuleAsName());

class TooLongText : public LongText {};

TEST_P(TooLongText, IsNotDrawn) {
    surface.SetFont(textFamily(), 12, 96, false, false, false);
    surface.DrawOverlayRectBoundedText(QStringLiteral("terms"), 10, 20, 90, 40, 0, 0);
    const int before = inkDots(*surface.picture());
    EXPECT_EQ(draw(), -1);
    EXPECT_EQ(inkDots(*surface.picture()), before);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(10, 20, 90, 40));
    EXPECT_EQ(surface.lastTextSize(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Text, TooLongText,
    testing::Values(LongTextRow{{"BeyondTheGreatestLength"},
                                "terms ",
                                velnor::MaximumTextLength + 1,
                                4,
                                600,
                                None,
                                Wraps},
                    LongTextRow{
                        {"ThatWouldShrinkForTooLong"}, "terms ", 1000000, 30, 100, 100, Wraps},
                    LongTextRow{{"OfOneWord"}, "terms", 1000000, 30, 100, None, Wraps}),
    RuleAsName());

} // namespace
