#include "render/velnorimage.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"

#include <QFontInfo>

#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();

struct PointsRow : Row {
    int size;
    int dpi;
    int points;
};

class Points : public testing::TestWithParam<PointsRow> {};

TEST_P(Points, AreTheSizeAtThePrintersResolution) {
    EXPECT_EQ(VelnorImage::ConvertToPoints(GetParam().size, GetParam().dpi), GetParam().points);
}

INSTANTIATE_TEST_SUITE_P(Text, Points,
                         testing::Values(PointsRow{{"TenAt203Dpi"}, 10, 203, 21},
                                         PointsRow{{"TenAt300Dpi"}, 10, 300, 31},
                                         PointsRow{{"TenAt96Dpi"}, 10, 96, 10},
                                         PointsRow{{"HalvesGoUpward"}, 1, 240, 3},
                                         PointsRow{{"NegativeHalvesGoUpward"}, -1, 240, -2},
                                         PointsRow{{"Zero"}, 0, 203, 0},
                                         PointsRow{{"HighestSaturates"}, Highest, 203, Highest},
                                         PointsRow{{"LowestSaturates"}, Lowest, 203, Lowest},
                                         PointsRow{{"ProductDoesNotWrap"}, 65536, 65536, 44739243}),
                         RuleAsName());

class TextFont : public testing::Test {
protected:
    TextFont() { registerTextFonts(); }

    const QFont& chosen(const QString& family, int size, int dpi, bool bold, bool italic,
                        bool antialias) {
        EXPECT_EQ(surface.SetFont(family, size, dpi, bold, italic, antialias), 0);
        return *surface.currentFont();
    }

    VelnorImage surface{20, 20};
};

TEST_F(TextFont, HasTheFamilyAndThePointSize) {
    const QFont& font = chosen(textFamily(), 10, 203, false, false, true);
    EXPECT_EQ(font.family(), textFamily());
    EXPECT_EQ(font.pointSize(), 21);
    EXPECT_TRUE(QFontInfo(font).exactMatch());
}

TEST_F(TextFont, HasNormalOrBoldWeight) {
    EXPECT_EQ(chosen(textFamily(), 10, 96, false, false, true).weight(), 50);
    EXPECT_EQ(chosen(textFamily(), 10, 96, true, false, true).weight(), 75);
}

TEST_F(TextFont, IsUprightOrItalic) {
    EXPECT_EQ(chosen(textFamily(), 10, 96, false, false, true).style(), QFont::StyleNormal);
    EXPECT_EQ(chosen(textFamily(), 10, 96, false, true, true).style(), QFont::StyleItalic);
}

TEST_F(TextFont, ForbidsAntialiasingOnlyWhenNotWanted) {
    EXPECT_EQ(chosen(textFamily(), 10, 96, false, false, true).styleStrategy(),
              QFont().styleStrategy());
    EXPECT_EQ(chosen(textFamily(), 10, 96, false, false, false).styleStrategy(),
              QFont().styleStrategy() | QFont::NoAntialias);
}

TEST_F(TextFont, ReplacesThePreviousOne) {
    chosen(textFamily(), 10, 96, true, true, false);
    const QFont& font = chosen(QStringLiteral("Liberation Mono"), 20, 96, false, false, true);
    EXPECT_EQ(font.family(), QStringLiteral("Liberation Mono"));
    EXPECT_EQ(font.pointSize(), 20);
    EXPECT_FALSE(font.bold());
    EXPECT_FALSE(font.italic());
}

TEST_F(TextFont, OfAnUnknownFamilyIsMatchedByQt) {
    const QtMessages messages;
    const QFont& font = chosen(QStringLiteral("No Such Family"), 10, 96, false, false, false);
    EXPECT_EQ(font.family(), QStringLiteral("No Such Family"));
    EXPECT_EQ(surface.DrawOverlayRectBoundedText(QStringLiteral("x"), 2, 2, -1, -1, 0, 0), 0);
    EXPECT_FALSE(isAllWhite(*surface.picture()));
    EXPECT_EQ(messages.heard(), "");
}

class NoFontSize : public TextFont, public testing::WithParamInterface<int> {};

TEST_P(NoFontSize, BecomesQtsTwelvePoints) {
    const QtMessages messages;
    EXPECT_EQ(chosen(textFamily(), GetParam(), 203, false, false, false).pointSize(), 12);
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(Text, NoFontSize, testing::Values(0, -1, -100, Lowest));

} // namespace
