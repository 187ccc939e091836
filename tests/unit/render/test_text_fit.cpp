#include "library_limits.h"
#include "render/velnorimage.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"
#include "support/white_surface.h"

#include <QFontMetrics>

#include <cmath>

namespace {

constexpr int StartSize = 30;
constexpr double Step = 0.95;
constexpr int Roomy = 100000;

QString words() {
    return QStringLiteral("Ticket 4711");
}

class TextFit : public testing::Test {
protected:
    TextFit() : painter(canvas) {
        registerTextFonts();
        start = QFont(textFamily(), StartSize);
        painter.setFont(start);
    }

    int fit(const QRectF& box, const QString& text, int flags = 0) {
        return VelnorImage::adaptFontSize(&painter, flags, box, text, start);
    }
    // How often the size was reduced by 5 %.
    double steps() const {
        return std::log(painter.font().pointSizeF() / StartSize) / std::log(Step);
    }
    QSize measured(double points, const QRect& box, int flags = 0) {
        QFont font = start;
        font.setPointSizeF(points);
        return QFontMetrics(font, &canvas).boundingRect(box, flags, words()).size();
    }

    QImage canvas = whiteSurface(400, 300);
    PlainPainter painter;
    QFont start;
};

TEST_F(TextFit, LeavesTextThatFitsAtItsSize) {
    EXPECT_EQ(fit(QRectF(0, 0, Roomy, Roomy), words()),
              measured(StartSize, QRect(0, 0, Roomy, Roomy)).width());
    EXPECT_EQ(painter.font().pointSizeF(), StartSize);
}

TEST_F(TextFit, LeavesTextThatFitsExactly) {
    const QSize size = measured(StartSize, QRect(0, 0, Roomy, Roomy));
    EXPECT_EQ(fit(QRectF(0, 0, size.width(), size.height()), words()), size.width());
    EXPECT_EQ(painter.font().pointSizeF(), StartSize);
}

struct BoxRow : Row {
    int width;
    int height;
};

class TextTooLarge : public TextFit, public testing::WithParamInterface<BoxRow> {};

TEST_P(TextTooLarge, ShrinksInStepsOfFivePercentUntilItFits) {
    const QRect box(10, 20, GetParam().width, GetParam().height);
    const int width = fit(QRectF(box), words());
    const double size = painter.font().pointSizeF();
    EXPECT_GT(steps(), 0.5);
    EXPECT_NEAR(steps(), std::round(steps()), 1e-6);
    EXPECT_EQ(width, measured(size, box).width());
    EXPECT_LE(width, box.width());
    EXPECT_LE(measured(size, box).height(), box.height());
    const QSize before = measured(size / Step, box);
    EXPECT_TRUE(before.width() > box.width() || before.height() > box.height());
}

INSTANTIATE_TEST_SUITE_P(TextFit, TextTooLarge,
                         testing::Values(BoxRow{{"InAWidthOf100AndAHeightOf20"}, 100, 20},
                                         BoxRow{{"InANarrowBox"}, 60, 1000},
                                         BoxRow{{"InALowBox"}, 1000, 15},
                                         BoxRow{{"InATinyBox"}, 9, 9}),
                         RuleAsName());

TEST_F(TextFit, ShrinksOnceWhereOneDotIsMissing) {
    const QSize size = measured(StartSize, QRect(0, 0, Roomy, Roomy));
    fit(QRectF(0, 0, size.width() - 1, Roomy), words());
    EXPECT_NEAR(steps(), 1, 1e-6);
    painter.setFont(start);
    fit(QRectF(0, 0, Roomy, size.height() - 1), words());
    EXPECT_NEAR(steps(), 1, 1e-6);
}

TEST_F(TextFit, CountsTheLinesOfWrappedText) {
    const QRect box(0, 0, 120, 60);
    fit(QRectF(box), words(), Qt::TextWordWrap);
    const QSize wrapped = measured(painter.font().pointSizeF(), box, Qt::TextWordWrap);
    EXPECT_LE(wrapped.width(), 120);
    EXPECT_LE(wrapped.height(), 60);
    EXPECT_GT(painter.font().pointSizeF(), 10);
}

TEST_F(TextFit, OfAnEmptyTextIsZeroAndLeavesTheFont) {
    EXPECT_EQ(fit(QRectF(0, 0, 1, 1), QString()), 0);
    EXPECT_EQ(fit(QRectF(0, 0, -5, -5), QString()), 0);
    EXPECT_EQ(painter.font().pointSizeF(), StartSize);
}

TEST_F(TextFit, SetsTheFontOnThePainterAloneAndOnlyItsSize) {
    start.setBold(true);
    start.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(start);
    fit(QRectF(0, 0, 50, 50), words());
    EXPECT_EQ(start.pointSizeF(), StartSize);
    EXPECT_TRUE(painter.font().bold());
    EXPECT_EQ(painter.font().styleStrategy(), QFont::NoAntialias);
}

class EndlessFit : public TextFit, public testing::WithParamInterface<BoxRow> {};

TEST_P(EndlessFit, EndsInSilence) {
    const QtMessages messages;
    const int width = fit(QRectF(10, 20, GetParam().width, GetParam().height), words());
    EXPECT_GE(width, 0);
    EXPECT_GT(painter.font().pointSizeF(), 0);
    EXPECT_LT(painter.font().pointSizeF(), StartSize);
    EXPECT_LT(steps(), 200); // the text has vanished by then
    EXPECT_EQ(messages.heard(), "");
}

constexpr int Lowest = -2147483647 - 1;

INSTANTIATE_TEST_SUITE_P(TextFit, EndlessFit,
                         testing::Values(BoxRow{{"NoHeight"}, 100, 0}, BoxRow{{"NoWidth"}, 0, 100},
                                         BoxRow{{"NoSize"}, 0, 0},
                                         BoxRow{{"NegativeHeight"}, 100, -1},
                                         BoxRow{{"NegativeWidth"}, -2, 100},
                                         BoxRow{{"NegativeSize"}, -50, -50},
                                         BoxRow{{"LowestSize"}, Lowest, Lowest}),
                         RuleAsName());

// Qt measures this one as a dot for ever.
TEST_F(TextFit, EndsAfterAThousandRounds) {
    fit(QRectF(0, 0, -1, -1), words(), Qt::AlignCenter);
    EXPECT_NEAR(steps(), 1000, 1e-6);
}

TEST_F(TextFit, EndsForEveryAlignmentOfANegativeBox) {
    for (const int flags : {0x84, 0x42, 0x8, 0x1000, 0x1084, 0x2000, 0x800, -1}) {
        painter.setFont(start);
        EXPECT_GE(fit(QRectF(0, 0, -10, -10), words(), flags), 0) << flags;
        EXPECT_LE(steps(), 1000 + 1e-6) << flags;
    }
}

TEST_F(TextFit, GivesUpWhenALongTextHasBeenMeasuredOftenEnough) {
    const int rounds = 80;
    const QString text = QStringLiteral("a ").repeated(velnor::MaximumShrinkWork / rounds / 2);
    EXPECT_EQ(fit(QRectF(0, 0, 100, 10), text, Qt::TextWordWrap), -1);
    EXPECT_NEAR(steps(), rounds, 1e-6);
    EXPECT_GT(fit(QRectF(0, 0, 100, Roomy * 100.0), text, Qt::TextWordWrap), 0);
}

} // namespace
