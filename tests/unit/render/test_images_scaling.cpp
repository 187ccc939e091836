#include "render/velnorimage.h"
#include "support/picture_files.h"
#include "support/rows.h"
#include "support/same_picture.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();

// For a picture of 200 x 100 dots.
struct ScalingRow : Row {
    int scalex;
    int scaley;
    int width;
    int height;
    int aspect;
    double factorX;
    double factorY;
    QSize kept;
};

class ScalingOf : public testing::TestWithParam<ScalingRow> {};

TEST_P(ScalingOf, GivesTheFactorsAndTheKeptPart) {
    const ScalingRow& row = GetParam();
    const QImage whole = colourfulPicture(200, 100);
    QImage picture = whole;
    double factorX = -1;
    double factorY = -1;
    VelnorImage::FixImageScaling(&picture, row.scalex, row.scaley, row.width, row.height, &factorX,
                                 &factorY, row.aspect);
    EXPECT_DOUBLE_EQ(factorX, row.factorX);
    EXPECT_DOUBLE_EQ(factorY, row.factorY);
    EXPECT_TRUE(samePicture(picture, whole.copy(QRect(QPoint(0, 0), row.kept))));
}

const QSize Whole(200, 100);

INSTANTIATE_TEST_SUITE_P(
    Images, ScalingOf,
    testing::Values(ScalingRow{{"HeightAloneSetsBoth"}, 50, 70, 0, 250, 0, 2.5, 2.5, Whole},
                    ScalingRow{{"WidthAloneSetsBoth"}, 50, 70, 250, 0, 0, 1.25, 1.25, Whole},
                    ScalingRow{{"PercentagesWithoutABox"}, 50, 170, -1, -1, 0, 0.5, 1.7, Whole},
                    ScalingRow{{"PercentageOfOne"}, 1, 1, -1, -1, 0, 0.01, 0.01, Whole},
                    ScalingRow{{"PercentagesBelowOneAreNatural"}, 0, -5, -1, -1, 0, 1, 1, Whole},
                    ScalingRow{{"AspectWithoutABox"}, 50, 170, 0, -1, 2, 0.5, 1.7, Whole},
                    ScalingRow{{"StretchSetsEach"}, 50, 70, 400, 100, 0, 2, 1, Whole},
                    ScalingRow{{"OtherAspectStretches"}, 50, 70, 400, 100, 4711, 2, 1, Whole},
                    ScalingRow{{"FitTakesTheSmallerByHeight"}, 50, 70, 400, 100, 1, 1, 1, Whole},
                    ScalingRow{{"FitTakesTheSmallerByWidth"}, 50, 70, 100, 400, 1, 0.5, 0.5, Whole},
                    ScalingRow{{"FillKeepsTheTop"}, 50, 70, 400, 100, 2, 2, 2, {200, 50}},
                    ScalingRow{{"FillKeepsTheLeft"}, 50, 70, 100, 100, 2, 1, 1, {100, 100}},
                    ScalingRow{{"FillOfTheSameShapeKeepsAll"}, 50, 70, 100, 50, 2, 0.5, 0.5, Whole},
                    ScalingRow{{"FillTruncatesColumns"}, 50, 70, 100, 150, 2, 1.5, 1.5, {66, 100}},
                    ScalingRow{{"FillTruncatesRows"}, 50, 70, 300, 100, 2, 1.5, 1.5, {200, 66}}),
    RuleAsName());

TEST(Scaling, OfNoPictureIsHarmless) {
    for (const int aspect : {0, 1, 2}) {
        QImage nothing;
        double factorX = 0;
        double factorY = 0;
        VelnorImage::FixImageScaling(&nothing, 100, 100, 300, 200, &factorX, &factorY, aspect);
        EXPECT_TRUE(nothing.isNull());
        EXPECT_TRUE(std::isfinite(factorX) && std::isfinite(factorY));
    }
}

TEST(Scaling, ToExtremeBoxesStaysFinite) {
    for (const int aspect : {0, 1, 2}) {
        for (const int width : {Lowest, 1, Highest}) {
            for (const int height : {Lowest, 1, Highest}) {
                QImage picture = colourfulPicture(200, 100);
                double factorX = 0;
                double factorY = 0;
                VelnorImage::FixImageScaling(&picture, Highest, Highest, width, height, &factorX,
                                             &factorY, aspect);
                EXPECT_TRUE(std::isfinite(factorX) && factorX > 0);
                EXPECT_TRUE(std::isfinite(factorY) && factorY > 0);
                EXPECT_LE(picture.width(), 200);
                EXPECT_LE(picture.height(), 100);
            }
        }
    }
}

} // namespace
