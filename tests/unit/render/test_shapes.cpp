#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

namespace {

constexpr int Width = 300;
constexpr int Height = 200;
constexpr int Solid = 0;
constexpr bool Aliased = false;
constexpr bool Antialiased = true;

QPen blackPen(int thickness) {
    return QPen(QBrush(Qt::black), thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

QPen dashedPen(int thickness) {
    QPen pen = blackPen(thickness);
    pen.setDashPattern({2.0, 1.0});
    return pen;
}

// What Qt draws with a pen; `draw` gets the painter.
template <typename Draw>
QImage drawnByQt(const QPen& pen, bool antialias, Draw draw) {
    QImage picture = whiteSurface(Width, Height);
    PlainPainter painter(picture);
    painter.setRenderHint(QPainter::Antialiasing, antialias);
    painter.setPen(pen);
    draw(painter);
    painter.end();
    return picture;
}

void turn(QPainter& painter, int x, int y, int degrees) {
    painter.translate(x, y);
    painter.rotate(degrees);
    painter.translate(-x, -y);
}

class Shapes : public testing::Test {
protected:
    const QImage& drawn() const { return *surface.picture(); }
    // True for each of the dots along a row.
    std::string dotsOfRow(int y, int from, int count) const {
        std::string dots;
        for (int x = from; x < from + count; ++x) {
            dots += drawn().pixel(x, y) == 0xff000000 ? '#' : '.';
        }
        return dots;
    }

    VelnorImage surface{Width, Height};
};

TEST_F(Shapes, RectangleIsAnOutlineCentredOnItsBox) {
    EXPECT_EQ(surface.DrawOverlayRectangle(10, 20, 100, 50, 0, 4, Solid, 0, Aliased), 0);
    EXPECT_EQ(inkOf(drawn()), QRect(8, 18, 104, 54));
    EXPECT_EQ(inkDots(drawn()), 104 * 54 - 96 * 46);
    EXPECT_TRUE(isAllWhite(drawn().copy(12, 22, 96, 46)));
}

TEST_F(Shapes, RectangleHasSharpCornersWithARadiusOfZero) {
    surface.DrawOverlayRectangle(10, 20, 100, 50, 0, 4, Solid, 0, Aliased);
    EXPECT_EQ(drawn().pixel(8, 18), 0xff000000);
    EXPECT_EQ(drawn().pixel(111, 71), 0xff000000);
}

TEST_F(Shapes, RectangleIsRoundedFromARadiusOfOneOn) {
    surface.DrawOverlayRectangle(10, 20, 100, 50, 0, 1, Solid, 1, Aliased);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(blackPen(1), Aliased, [](QPainter& painter) {
                                painter.drawRoundedRect(QRectF(10, 20, 100, 50), 1, 1);
                            })));
    VelnorImage sharp(Width, Height);
    sharp.DrawOverlayRectangle(10, 20, 100, 50, 0, 1, Solid, 0, Aliased);
    EXPECT_FALSE(samePicture(drawn(), *sharp.picture()));
}

TEST_F(Shapes, RectangleWithANegativeRadiusIsSharp) {
    surface.DrawOverlayRectangle(10, 20, 100, 50, 0, 3, Solid, -7, Aliased);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(blackPen(3), Aliased, [](QPainter& painter) {
                                painter.drawRect(QRectF(10, 20, 100, 50));
                            })));
}

TEST_F(Shapes, RectangleTakesItsRadiusInDotsInBothDirections) {
    surface.DrawOverlayRectangle(10, 20, 200, 60, 0, 3, Solid, 25, Antialiased);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(blackPen(3), Antialiased, [](QPainter& painter) {
                                painter.drawRoundedRect(QRectF(10, 20, 200, 60), 25, 25,
                                                        Qt::AbsoluteSize);
                            })));
}

TEST_F(Shapes, EllipseIsAnOutlineInsideItsBox) {
    EXPECT_EQ(surface.DrawOverlayEllipse(10, 20, 100, 50, 0, 3, Solid, Aliased), 0);
    EXPECT_EQ(inkOf(drawn()), QRect(9, 19, 103, 53));
    EXPECT_EQ(drawn().pixel(60, 45), 0xffffffff);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(blackPen(3), Aliased, [](QPainter& painter) {
                                painter.drawEllipse(QRectF(10, 20, 100, 50));
                            })));
}

TEST_F(Shapes, LineLiesInTheMiddleOfItsThickness) {
    EXPECT_EQ(surface.DrawOverlayLine(10, 20, -1, 10, 0, 4, Solid, 200, Aliased), 0);
    EXPECT_EQ(inkOf(drawn()), QRect(10, 20, 200, 4));
    EXPECT_EQ(inkDots(drawn()), 200 * 4);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(10, 20, 200, 4));
    EXPECT_EQ(surface.getCurrentY(), 24);
}

TEST_F(Shapes, LineOfOddThicknessAndHalfMiddle) {
    surface.DrawOverlayLine(10, 20, -1, 10, 0, 3, Solid, 200, Aliased);
    EXPECT_TRUE(samePicture(drawn(), drawnByQt(blackPen(3), Aliased, [](QPainter& painter) {
                                painter.drawLine(QLineF(10, 21.5, 210, 21.5));
                            })));
}

struct LineRow : Row {
    int width;
    int height;
    int thickness;
    int length;
    QRectF box;
    QLineF line;
};

class LineBox : public Shapes, public testing::WithParamInterface<LineRow> {};

TEST_P(LineBox, IsAdjustedToLengthAndThickness) {
    const LineRow& row = GetParam();
    surface.DrawOverlayLine(50, 60, row.width, row.height, 0, row.thickness, Solid, row.length,
                            Aliased);
    EXPECT_EQ(surface.lastBoundingRect(), row.box);
    EXPECT_EQ(surface.getCurrentY(), static_cast<int>(row.box.bottom()));
    EXPECT_TRUE(
        samePicture(drawn(), drawnByQt(blackPen(row.thickness), Aliased,
                                       [&](QPainter& painter) { painter.drawLine(row.line); })));
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, LineBox,
    testing::Values(
        LineRow{{"LengthReplacesTheWidth"}, 30, 6, 6, 100, {50, 60, 100, 6}, {50, 63, 150, 63}},
        LineRow{
            {"ThicknessReplacesTheHeight"}, 100, 20, 6, 100, {50, 60, 100, 6}, {50, 63, 150, 63}},
        LineRow{{"EqualLengthsStay"}, 100, 6, 6, 100, {50, 60, 100, 6}, {50, 63, 150, 63}},
        LineRow{{"LengthOfZeroDrawsNoLine"}, 100, 6, 6, 0, {50, 60, 100, 6}, {50, 63, 50, 63}},
        LineRow{{"LengthNotGivenEndsBeforeTheStart"},
                100,
                6,
                6,
                -1,
                {50, 60, 100, 6},
                {50, 63, 49, 63}},
        LineRow{{"NegativeLengthGoesLeft"}, 100, 6, 6, -20, {50, 60, 100, 6}, {50, 63, 30, 63}},
        LineRow{{"ThicknessOfZeroKeepsTheHeight"},
                30,
                10,
                0,
                100,
                {50, 60, 100, 10},
                {50, 65, 150, 65}}),
    RuleAsName());

TEST_F(Shapes, DashesAreTwoAndGapsOneThicknessLong) {
    surface.DrawOverlayLine(10, 20, 200, 4, 0, 4, 1, 200, Aliased);
    EXPECT_EQ(dotsOfRow(21, 8, 40), "..########....########....########....##");
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayLine(10, 20, 200, 1, 0, 1, 1, 200, Aliased);
    EXPECT_EQ(dotsOfRow(inkOf(drawn()).y(), 10, 12), "##.##.##.##.");
}

class DashStyle : public testing::TestWithParam<int> {};

TEST_P(DashStyle, IsTheSameForEveryStyleButZero) {
    VelnorImage surface(Width, Height);
    surface.DrawOverlayRectangle(10, 20, 100, 50, 0, 4, GetParam(), 0, Aliased);
    surface.DrawOverlayRectangle(150, 20, 100, 50, 0, 3, GetParam(), 12, Aliased);
    surface.DrawOverlayEllipse(10, 100, 100, 50, 0, 3, GetParam(), Aliased);
    surface.DrawOverlayLine(150, 100, 100, 5, 30, 5, GetParam(), 100, Aliased);
    const QImage expected = drawnByQt(dashedPen(3), Aliased, [](QPainter& painter) {
        painter.drawRoundedRect(QRectF(150, 20, 100, 50), 12, 12);
        painter.drawEllipse(QRectF(10, 100, 100, 50));
        painter.setPen(dashedPen(4));
        painter.drawRect(QRectF(10, 20, 100, 50));
        painter.setPen(dashedPen(5));
        turn(painter, 150, 100, 30);
        painter.drawLine(QLineF(150, 102.5, 250, 102.5));
    });
    EXPECT_TRUE(samePicture(*surface.picture(), expected));
}

INSTANTIATE_TEST_SUITE_P(Shapes, DashStyle, testing::Values(1, 2, 5, 6, 7, -1, 0x7fffffff));

TEST_F(Shapes, AliasedDiagonalsHaveHardEdges) {
    surface.DrawOverlayRectangle(150, 20, 80, 60, 33, 3, Solid, 0, Aliased);
    surface.DrawOverlayEllipse(150, 100, 80, 60, 33, 3, Solid, Aliased);
    surface.DrawOverlayLine(20, 20, 100, 3, 33, 3, Solid, 100, Aliased);
    EXPECT_GT(inkDots(drawn()), 0);
    EXPECT_FALSE(hasGrey(drawn()));
}

TEST_F(Shapes, AntialiasedDiagonalsHaveSoftEdges) {
    surface.DrawOverlayRectangle(150, 20, 80, 60, 33, 3, Solid, 0, Antialiased);
    EXPECT_TRUE(hasGrey(drawn()));
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayEllipse(150, 100, 80, 60, 33, 3, Solid, Antialiased);
    EXPECT_TRUE(hasGrey(drawn()));
    surface.CreateBaseEmptyImage(Width, Height);
    surface.DrawOverlayLine(20, 20, 100, 3, 33, 3, Solid, 100, Antialiased);
    EXPECT_TRUE(hasGrey(drawn()));
}

class ThinPen : public Shapes, public testing::WithParamInterface<int> {};

TEST_P(ThinPen, IsOneDotWide) {
    surface.DrawOverlayRectangle(10, 20, 100, 50, 0, GetParam(), Solid, 0, Aliased);
    EXPECT_EQ(inkOf(drawn()), QRect(10, 20, 101, 51));
    EXPECT_EQ(inkDots(drawn()), 101 * 51 - 99 * 49);
}

INSTANTIATE_TEST_SUITE_P(Shapes, ThinPen, testing::Values(0, 1));

TEST_F(Shapes, NegativeBoxesAreDrawnAndRecordedAsWritten) {
    surface.DrawOverlayRectangle(110, 70, -100, -50, 0, 4, Solid, 0, Aliased);
    EXPECT_EQ(inkOf(drawn()), QRect(8, 18, 104, 54));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(110, 70, -100, -50));
    EXPECT_EQ(surface.getCurrentY(), 20);
}

TEST_F(Shapes, OutsideTheSurfaceAreRecordedAndDrawNothing) {
    surface.DrawOverlayEllipse(1000, 2000, 30, 40, 0, 3, Solid, Aliased);
    EXPECT_TRUE(isAllWhite(drawn()));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(1000, 2000, 30, 40));
    EXPECT_EQ(surface.getCurrentY(), 2040);
}

} // namespace
