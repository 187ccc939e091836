#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

#include <cmath>

namespace {

constexpr int Width = 300;
constexpr int Height = 300;
constexpr int X = 150;
constexpr int Y = 120;

struct AngleRow : Row {
    int rotation;
    int degrees; // what Qt is asked for
};

class ShapeRotation : public testing::TestWithParam<AngleRow> {
protected:
    // What Qt draws, turned about the position, with a pen three dots wide.
    template <typename Draw>
    static QImage turnedByQt(Draw draw) {
        QImage picture = whiteSurface(Width, Height);
        PlainPainter painter(picture);
        painter.translate(X, Y);
        painter.rotate(GetParam().degrees);
        painter.translate(-X, -Y);
        painter.setPen(QPen(QBrush(Qt::black), 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        draw(painter);
        painter.end();
        return picture;
    }
    const QImage& drawn() const { return *surface.picture(); }

    VelnorImage surface{Width, Height};
};

TEST_P(ShapeRotation, TurnsARectangleAboutItsPosition) {
    surface.DrawOverlayRectangle(X, Y, 90, 60, GetParam().rotation, 3, 0, 0, false);
    EXPECT_TRUE(samePicture(
        drawn(), turnedByQt([](QPainter& painter) { painter.drawRect(QRectF(X, Y, 90, 60)); })));
}

TEST_P(ShapeRotation, TurnsAnEllipseAboutItsPosition) {
    surface.DrawOverlayEllipse(X, Y, 90, 60, GetParam().rotation, 3, 0, false);
    EXPECT_TRUE(samePicture(
        drawn(), turnedByQt([](QPainter& painter) { painter.drawEllipse(QRectF(X, Y, 90, 60)); })));
}

TEST_P(ShapeRotation, TurnsALineAboutItsPosition) {
    surface.DrawOverlayLine(X, Y, 90, 3, GetParam().rotation, 3, 0, 90, false);
    EXPECT_TRUE(samePicture(drawn(), turnedByQt([](QPainter& painter) {
                                painter.drawLine(QLineF(X, Y + 1.5, X + 90, Y + 1.5));
                            })));
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, ShapeRotation,
    testing::Values(AngleRow{{"NotTurned"}, 0, 0}, AngleRow{{"OneDegree"}, 1, 1},
                    AngleRow{{"MinusOneIsAnAngleAsWritten"}, -1, -1},
                    AngleRow{{"EighthOfATurn"}, 45, 45}, AngleRow{{"QuarterTurn"}, 90, 90},
                    AngleRow{{"QuarterTurnBack"}, -90, -90}, AngleRow{{"HalfTurn"}, 180, 180},
                    AngleRow{{"FullTurn"}, 360, 360}, AngleRow{{"BeyondAFullTurnIsNoTurn"}, 400, 0},
                    AngleRow{{"NotANumberIsNoTurn"}, -361, 0}),
    RuleAsName());

TEST(TurnedShape, OfASquareRecordsItsDiagonal) {
    VelnorImage surface(Width, Height);
    surface.DrawOverlayRectangle(X, Y, 100, 100, 45, 3, 0, 0, false);
    const QRectF covered = surface.lastBoundingRect();
    const double diagonal = 100 * std::sqrt(2.0);
    EXPECT_NEAR(covered.x(), X - diagonal / 2, 1e-9);
    EXPECT_NEAR(covered.y(), Y, 1e-9);
    EXPECT_NEAR(covered.width(), diagonal, 1e-9);
    EXPECT_NEAR(covered.height(), diagonal, 1e-9);
    EXPECT_EQ(surface.getCurrentY(), 261); // 120 + 141.42
}

TEST(TurnedShape, OfEveryKindRecordsItsTurnedBox) {
    const QRectF quarterTurned(X - 60, Y, 60, 90);
    VelnorImage surface(Width, Height);
    surface.DrawOverlayRectangle(X, Y, 90, 60, 90, 3, 0, 5, false);
    EXPECT_EQ(surface.lastBoundingRect(), quarterTurned);
    surface.DrawOverlayEllipse(X, Y, 90, 60, 90, 3, 0, false);
    EXPECT_EQ(surface.lastBoundingRect(), quarterTurned);
    surface.DrawOverlayLine(X, Y, 90, 1, 90, 60, 0, 90, false);
    EXPECT_EQ(surface.lastBoundingRect(), quarterTurned);
    EXPECT_EQ(surface.getCurrentY(), Y + 90);
}

TEST(TurnedShape, LeavesTheNextOneUnturned) {
    VelnorImage surface(Width, Height);
    surface.DrawOverlayRectangle(1000, 1000, 10, 10, 45, 3, 0, 0, false);
    surface.DrawOverlayRectangle(X, Y, 90, 60, 0, 4, 0, 0, false);
    EXPECT_EQ(inkOf(*surface.picture()), QRect(X - 2, Y - 2, 94, 64));
}

} // namespace
