#include "render/velnorimage.h"
#include "support/rows.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();

// Where (110, 70) goes when the centre is (100, 50): 10 to the right of it and 20 below.
struct AngleRow : Row {
    int rotation;
    QPointF expected;
};

class Angle : public testing::TestWithParam<AngleRow> {};

TEST_P(Angle, TurnsClockwiseAboutTheCentre) {
    const QTransform transform =
        VelnorImage::TransformScaleRotate(100, 50, 1.0, 1.0, GetParam().rotation);
    const QPointF turned = transform.map(QPointF(110, 70));
    EXPECT_NEAR(turned.x(), GetParam().expected.x(), 1e-9);
    EXPECT_NEAR(turned.y(), GetParam().expected.y(), 1e-9);
    EXPECT_EQ(transform.map(QPointF(100, 50)), QPointF(100, 50));
}

const double Half = std::sqrt(0.5);

INSTANTIATE_TEST_SUITE_P(
    Transform, Angle,
    testing::Values(AngleRow{{"ZeroChangesNothing"}, 0, {110, 70}},
                    AngleRow{{"QuarterTurn"}, 90, {80, 60}}, AngleRow{{"HalfTurn"}, 180, {90, 30}},
                    AngleRow{{"ThreeQuarterTurn"}, 270, {120, 40}},
                    AngleRow{{"FullTurn"}, 360, {110, 70}},
                    AngleRow{{"QuarterTurnBack"}, -90, {120, 40}},
                    AngleRow{{"FullTurnBack"}, -360, {110, 70}},
                    AngleRow{{"EighthOfATurn"}, 45, {100 - 10 * Half, 50 + 30 * Half}},
                    AngleRow{{"JustBelowAFullTurn"},
                             359,
                             {100 + 10 * std::cos(M_PI / 180) + 20 * std::sin(M_PI / 180),
                              50 - 10 * std::sin(M_PI / 180) + 20 * std::cos(M_PI / 180)}},
                    AngleRow{{"MinusOneIsAnAngle"},
                             -1,
                             {100 + 10 * std::cos(M_PI / 180) + 20 * std::sin(M_PI / 180),
                              50 - 10 * std::sin(M_PI / 180) + 20 * std::cos(M_PI / 180)}},
                    AngleRow{{"BeyondAFullTurnIsNoTurn"}, 361, {110, 70}},
                    AngleRow{{"BeyondAFullTurnBackIsNoTurn"}, -361, {110, 70}},
                    AngleRow{{"FarBeyondAFullTurnIsNoTurn"}, 450, {110, 70}},
                    AngleRow{{"HighestIsNoTurn"}, Highest, {110, 70}},
                    AngleRow{{"LowestIsNoTurn"}, Lowest, {110, 70}}),
    RuleAsName());

TEST(Transform, ScalesFromTheCentre) {
    const QTransform transform = VelnorImage::TransformScaleRotate(100, 50, 2.0, 0.5, 0);
    EXPECT_EQ(transform.map(QPointF(110, 70)), QPointF(120, 60));
    EXPECT_EQ(transform.map(QPointF(100, 50)), QPointF(100, 50));
}

TEST(Transform, ScalesBeforeItTurns) {
    const QTransform transform = VelnorImage::TransformScaleRotate(100, 50, 2.0, 0.5, 90);
    EXPECT_EQ(transform.map(QPointF(110, 70)), QPointF(90, 70));
}

struct PercentRow : Row {
    int percentX;
    int percentY;
    QPointF expected;
};

class Percentage : public testing::TestWithParam<PercentRow> {};

TEST_P(Percentage, IsAFactorAndBelowOneMeansNaturalSize) {
    const QTransform transform =
        VelnorImage::TransformScaleRotate(100, 50, GetParam().percentX, GetParam().percentY, 0);
    const QPointF scaled = transform.map(QPointF(110, 70));
    EXPECT_NEAR(scaled.x(), GetParam().expected.x(), 1e-9);
    EXPECT_NEAR(scaled.y(), GetParam().expected.y(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Transform, Percentage,
                         testing::Values(PercentRow{{"Hundred"}, 100, 100, {110, 70}},
                                         PercentRow{{"EachDirectionHasItsOwn"}, 250, 50, {125, 60}},
                                         PercentRow{{"OneIsAHundredth"}, 1, 1, {100.1, 50.2}},
                                         PercentRow{{"ZeroIsNatural"}, 0, 50, {110, 60}},
                                         PercentRow{{"NegativeIsNatural"}, 250, -1, {125, 70}},
                                         PercentRow{
                                             {"LowestIsNatural"}, Lowest, Lowest, {110, 70}}),
                         RuleAsName());

TEST(Transform, CoveredAreaEnclosesTheTurnedBox) {
    const QTransform transform = VelnorImage::TransformScaleRotate(100, 50, 1.0, 1.0, 45);
    const QRectF covered =
        VelnorImage::GetBoundingRectUsingTransform(QRectF(100, 50, 100, 100), transform);
    EXPECT_NEAR(covered.x(), 100 - 100 * Half, 1e-9);
    EXPECT_NEAR(covered.y(), 50, 1e-9);
    EXPECT_NEAR(covered.width(), 200 * Half, 1e-9);
    EXPECT_NEAR(covered.height(), 200 * Half, 1e-9);
}

TEST(Transform, CoveredAreaOfAnUnturnedBoxIsTheBox) {
    const QRectF box(-3, 4, 50.5, 6.25);
    EXPECT_EQ(VelnorImage::GetBoundingRectUsingTransform(box, QTransform()), box);
}

TEST(Transform, AboutExtremeCentresStaysFinite) {
    for (const int centre : {Lowest, Highest}) {
        const QTransform transform =
            VelnorImage::TransformScaleRotate(centre, centre, Highest, Lowest, 33);
        const QPointF kept = transform.map(QPointF(centre, centre));
        EXPECT_TRUE(std::isfinite(kept.x()) && std::isfinite(kept.y()));
    }
}

} // namespace
