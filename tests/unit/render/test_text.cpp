#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"
#include "support/white_surface.h"

#include <QFontInfo>
#include <QFontMetrics>

namespace {

constexpr int Width = 400;
constexpr int Height = 300;
constexpr int Endless = 1000 * Width;
constexpr int NoFlags = 0;

QString words() {
    return QStringLiteral("Ticket 4711 to Hamburg");
}

QFont fontOf(int points) {
    QFont font(textFamily(), points);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

class Text : public testing::Test {
protected:
    Text() {
        registerTextFonts();
        surface.SetFont(textFamily(), 16, 96, false, false, false);
    }

    const QImage& drawn() const { return *surface.picture(); }
    int drawUnbounded(const QString& text, int x, int y) {
        return surface.DrawOverlayRectBoundedText(text, x, y, -1, -1, NoFlags, 0);
    }
    // The text drawn by Qt alone, at full size.
    static QImage drawnByQt(const QRectF& box, int flags, const QString& text) {
        QImage picture = whiteSurface(Width, Height);
        PlainPainter painter(picture);
        painter.setFont(fontOf(16));
        painter.setPen(Qt::black);
        painter.drawText(box, flags, text);
        painter.end();
        return picture;
    }
    // What Qt's painter measures on a surface, at full size.
    static QRectF measuredByQt(const QRectF& box, int flags, const QString& text) {
        QImage picture = whiteSurface(Width, Height);
        PlainPainter painter(picture);
        painter.setFont(fontOf(16));
        return painter.boundingRect(box, flags, text);
    }

    VelnorImage surface{Width, Height};
};

TEST_F(Text, UnboundedIsDrawnOnOneLineAtFullSize) {
    EXPECT_EQ(drawUnbounded(words(), 20, 30), 0);
    const QRectF measured = measuredByQt(QRectF(20, 30, Endless, 16), Qt::AlignLeft, words());
    const QRectF box(20, 30, measured.width(), measured.height());
    EXPECT_EQ(surface.lastBoundingRect(), box);
    EXPECT_EQ(surface.getCurrentY(), qRound(box.bottom()));
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(box, Qt::AlignLeft, words())));
    EXPECT_FALSE(isAllWhite(drawn()));
}

// All flags are set then, and Qt has one that means: measure, do not print.
TEST_F(Text, WithoutFlagsOfItsOwnIsMeasuredButNotPrinted) {
    EXPECT_EQ(surface.DrawOverlayText(words(), 20, 30, 0), 0);
    EXPECT_TRUE(isAllWhite(drawn()));
    EXPECT_EQ(surface.lastBoundingRect().topLeft(), QPointF(20, 30));
    EXPECT_GT(surface.lastBoundingRect().width(), 100);
    EXPECT_GT(surface.getCurrentY(), 40);
}

TEST_F(Text, UnboundedStaysOnOneLineEvenWhereItLeavesTheSurface) {
    const QString longText = words().repeated(5);
    surface.DrawOverlayRectBoundedText(longText, 20, 30, -1, -1, Qt::TextWordWrap, 0);
    const double line = measuredByQt(QRectF(0, 0, Endless, Endless), 0, words()).height();
    EXPECT_EQ(surface.lastBoundingRect().height(), line);
    EXPECT_GT(surface.lastBoundingRect().width(), 2 * Width);
}

TEST_F(Text, UnboundedIsDrawnWhateverTheHeight) {
    surface.DrawOverlayRectBoundedText(words(), 20, 30, -1, 5, NoFlags, 0);
    const QImage withHeight = drawn().copy();
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayRectBoundedText(words(), 20, 30, -1, -1, NoFlags, 0);
    EXPECT_TRUE(samePicture(drawn(), withHeight));
    EXPECT_FALSE(isAllWhite(drawn()));
}

class HorizontalFlag : public Text, public testing::WithParamInterface<int> {};

// The box is as wide as the longest line: only a shorter one could show an alignment.
TEST_P(HorizontalFlag, IsIgnoredWhereNothingBoundsTheText) {
    const QString lines = QStringLiteral("Ticket 4711\nto Hamburg\nat 9");
    surface.DrawOverlayRectBoundedText(lines, 20, 30, -1, -1, GetParam(), 0);
    const QRectF box = measuredByQt(QRectF(20, 30, Endless, 16), Qt::AlignLeft, lines);
    EXPECT_EQ(surface.lastBoundingRect(), box);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(box, Qt::AlignLeft, lines)));
}

INSTANTIATE_TEST_SUITE_P(Text, HorizontalFlag,
                         testing::Values(Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter,
                                         Qt::AlignJustify));

TEST_F(Text, BoundedByALineWrapsAndRecordsItsLines) {
    EXPECT_EQ(surface.DrawOverlayLineBoundedText(words(), 20, 30, 120, Qt::TextWordWrap, 0), 0);
    const int flags = Qt::TextWordWrap | Qt::AlignTop;
    const double lines = measuredByQt(QRectF(20, 30, 120, Endless), flags, words()).height();
    EXPECT_GT(lines, measuredByQt(QRectF(20, 30, Endless, Endless), 0, words()).height());
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(20, 30, 120, lines));
    EXPECT_EQ(surface.getCurrentY(), 30 + qRound(lines));
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(QRectF(20, 30, 120, lines), flags, words())));
}

class VerticalFlag : public Text, public testing::WithParamInterface<int> {};

TEST_P(VerticalFlag, IsIgnoredWhereOnlyALineBoundsTheText) {
    surface.DrawOverlayLineBoundedText(words(), 20, 30, 350, GetParam(), 0);
    const QImage aligned = drawn().copy();
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayLineBoundedText(words(), 20, 30, 350, Qt::AlignTop, 0);
    EXPECT_TRUE(samePicture(aligned, drawn()));
    EXPECT_FALSE(isAllWhite(drawn()));
}

INSTANTIATE_TEST_SUITE_P(Text, VerticalFlag,
                         testing::Values(0, Qt::AlignBottom, Qt::AlignVCenter,
                                         Qt::AlignBottom | Qt::AlignVCenter));

TEST_F(Text, BoundedByALineIsAlignedHorizontally) {
    surface.DrawOverlayLineBoundedText(words(), 20, 30, 350, Qt::AlignRight, 0);
    EXPECT_NEAR(inkOf(drawn()).right(), 370, 4);
}

TEST_F(Text, BoundedByALineShrinksUntilTheLineIsWideEnough) {
    const double full = measuredByQt(QRectF(0, 0, Endless, Endless), 0, words()).width();
    ASSERT_GT(full, 100);
    surface.DrawOverlayLineBoundedText(words(), 20, 30, 100, NoFlags, 0);
    EXPECT_LE(inkOf(drawn()).right(), 120);
    EXPECT_EQ(surface.lastBoundingRect().width(), 100);
    EXPECT_LT(surface.lastBoundingRect().height(),
              measuredByQt(QRectF(0, 0, Endless, Endless), 0, words()).height());
}

class RectangleFlag : public Text, public testing::WithParamInterface<int> {};

TEST_P(RectangleFlag, PlacesTextInItsRectangle) {
    const QRectF box(20, 30, 350, 200);
    EXPECT_EQ(surface.DrawOverlayRectBoundedText(words(), 20, 30, 350, 200, GetParam(), 0), 0);
    EXPECT_EQ(surface.lastBoundingRect(), box);
    EXPECT_EQ(surface.getCurrentY(), 230);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(box, GetParam(), words())));
    EXPECT_FALSE(isAllWhite(drawn()));
}

INSTANTIATE_TEST_SUITE_P(Text, RectangleFlag,
                         testing::Values(0, 0x1, 0x2, 0x4, 0x8, 0x20, 0x40, 0x80, 0x84, 0x42,
                                         0x1000, 0x1084, 0x100));

TEST_F(Text, ThatIsTooWideShrinksIntoItsRectangle) {
    const QRectF full = measuredByQt(QRectF(0, 0, Endless, Endless), 0, words());
    ASSERT_GT(full.width(), 150);
    surface.DrawOverlayRectBoundedText(words(), 20, 30, 100, 20, NoFlags, 0);
    EXPECT_TRUE(QRect(19, 30, 102, 20).contains(inkOf(drawn())));
    EXPECT_GT(inkOf(drawn()).width(), 80);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(20, 30, 100, 20));
    EXPECT_EQ(surface.getCurrentY(), 50);
}

TEST_F(Text, ThatShrankLeavesTheFontForTheNextAtFullSize) {
    surface.DrawOverlayRectBoundedText(words(), 20, 30, 50, 10, NoFlags, 0);
    EXPECT_EQ(surface.currentFont()->pointSize(), 16);
    surface.CreateBaseEmptyImage(Width, Height);
    drawUnbounded(words(), 20, 30);
    const QRectF box = measuredByQt(QRectF(20, 30, Endless, 16), Qt::AlignLeft, words());
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(box, Qt::AlignLeft, words())));
}

TEST_F(Text, ThatIsEmptyDrawsNothingAndCoversItsWholeRectangle) {
    EXPECT_EQ(surface.DrawOverlayRectBoundedText(QString(), 20, 30, 100, 50, NoFlags, 0), 0);
    EXPECT_TRUE(isAllWhite(drawn()));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(20, 30, 100, 50));
    EXPECT_EQ(surface.getCurrentY(), 80);
}

TEST_F(Text, ThatIsEmptyCoversNothingWhereNothingBoundsIt) {
    EXPECT_EQ(drawUnbounded(QString(), 20, 30), 0);
    EXPECT_TRUE(isAllWhite(drawn()));
    EXPECT_EQ(surface.lastBoundingRect().topLeft(), QPointF(20, 30));
    EXPECT_EQ(surface.lastBoundingRect().width(), 0);
}

TEST_F(Text, TurnedAQuarterStandsBesideItsPosition) {
    surface.DrawOverlayRectBoundedText(words(), 200, 30, 250, 40, NoFlags, 90);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(160, 30, 40, 250));
    EXPECT_EQ(surface.getCurrentY(), 280);
    const QRect ink = inkOf(drawn());
    EXPECT_TRUE(QRect(160, 29, 41, 252).contains(ink));
    EXPECT_GT(ink.height(), 3 * ink.width());
}

TEST_F(Text, TurnedAQuarterBackRunsUpward) {
    surface.DrawOverlayRectBoundedText(words(), 100, 280, 250, 40, NoFlags, -90);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(100, 30, 40, 250));
    EXPECT_TRUE(QRect(99, 29, 42, 252).contains(inkOf(drawn())));
}

TEST_F(Text, TakesAnAngleOfMinusOneAsWritten) {
    surface.DrawOverlayRectBoundedText(words(), 20, 100, 250, 40, NoFlags, -1);
    EXPECT_LT(surface.lastBoundingRect().y(), 96);
}

TEST_F(Text, TurnedBeyondAFullTurnStaysUpright) {
    surface.DrawOverlayRectBoundedText(words(), 20, 30, 350, 40, NoFlags, 400);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(QRectF(20, 30, 350, 40), 0, words())));
}

TEST_F(Text, IsBlackAndWhiteWithoutAntialiasingAndShadedWithIt) {
    drawUnbounded(words(), 20, 30);
    EXPECT_FALSE(isAllWhite(drawn()));
    EXPECT_FALSE(hasGrey(drawn()));
    surface.CreateBaseEmptyImage(Width, Height);
    surface.SetFont(textFamily(), 16, 96, false, false, true);
    drawUnbounded(words(), 20, 30);
    EXPECT_TRUE(hasGrey(drawn()));
}

TEST_F(Text, WithoutAFontIsNotDrawn) {
    VelnorImage fontless(Width, Height);
    fontless.DrawOverlayRectangle(10, 20, 30, 40, 0, 1, 0, 0, false);
    const QImage before = fontless.picture()->copy();
    EXPECT_EQ(fontless.DrawOverlayText(words(), 1, 2, 0), -1);
    EXPECT_EQ(fontless.DrawOverlayLineBoundedText(words(), 1, 2, 100, 0, 0), -1);
    EXPECT_EQ(fontless.DrawOverlayRectBoundedText(words(), 1, 2, 100, 50, 0, 0), -1);
    EXPECT_EQ(fontless.DrawOverlayTextGeneric(words(), 1, 2, 0, 100, 50, 0), -1);
    EXPECT_TRUE(samePicture(*fontless.picture(), before));
    EXPECT_EQ(fontless.lastBoundingRect(), QRectF(10, 20, 30, 40));
    EXPECT_EQ(fontless.getCurrentY(), 60);
}

TEST_F(Text, IsDrawnByTheGenericOperationAsByTheOthers) {
    surface.DrawOverlayTextGeneric(words(), 20, 30, 0, 120, -1, Qt::TextWordWrap);
    const QImage generic = drawn().copy();
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayLineBoundedText(words(), 20, 30, 120, Qt::TextWordWrap, 0);
    EXPECT_TRUE(samePicture(drawn(), generic));
}

} // namespace
