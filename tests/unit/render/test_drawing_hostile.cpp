// Every drawing operation with numbers at the edges of 32 bits, and patterns without end.
#include "render/velnorimage.h"
#include "support/peak_memory.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"
#include "support/white_surface.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr long PermittedMegabytes = 300;
constexpr int Rotations[] = {0, 33, 90, -1};
constexpr int Thicknesses[] = {0, 1, 2, 5};

// x, y, width, height, and one number that each operation uses in its own way: thickness, length,
// percentages, font size.
struct NumbersRow : Row {
    int x;
    int y;
    int width;
    int height;
    int measure;
};

class HostileDrawing : public testing::TestWithParam<NumbersRow> {
protected:
    HostileDrawing() {
        registerTextFonts();
        file = writePicture(folder, QStringLiteral("picture.png"), colourfulPicture(20, 10));
    }
    void TearDown() override {
        const QRectF covered = surface.lastBoundingRect();
        EXPECT_TRUE(std::isfinite(covered.x()) && std::isfinite(covered.y()));
        EXPECT_TRUE(std::isfinite(covered.width()) && std::isfinite(covered.height()));
        EXPECT_LT(memory.risenMegabytes(), PermittedMegabytes);
        EXPECT_EQ(messages.heard(), "");
    }

    template <typename Draw>
    static void forEachWay(Draw draw) {
        for (const int rotation : Rotations) {
            for (const bool second : {false, true}) {
                EXPECT_EQ(draw(rotation, second), 0) << "rotation " << rotation;
            }
        }
    }

    const NumbersRow& n = GetParam();
    PeakMemory memory;
    QtMessages messages;
    ScratchFolder folder;
    QString file;
    VelnorImage surface{100, 80};
};

TEST_P(HostileDrawing, Rectangle) {
    forEachWay([this](int rotation, bool antialias) {
        return surface.DrawOverlayRectangle(n.x, n.y, n.width, n.height, rotation, n.measure, 0, 0,
                                            antialias);
    });
}

TEST_P(HostileDrawing, DashedRectangle) {
    for (const int thickness : Thicknesses) {
        forEachWay([this, thickness](int rotation, bool antialias) {
            return surface.DrawOverlayRectangle(n.x, n.y, n.width, n.height, rotation, thickness, 1,
                                                0, antialias);
        });
    }
}

TEST_P(HostileDrawing, RectangleOfAnyStyleAndThickness) {
    forEachWay([this](int rotation, bool antialias) {
        return surface.DrawOverlayRectangle(n.x, n.y, n.width, n.height, rotation, n.measure,
                                            n.measure, 0, antialias);
    });
}

TEST_P(HostileDrawing, RoundedRectangle) {
    forEachWay([this](int rotation, bool dashed) {
        return surface.DrawOverlayRectangle(n.x, n.y, n.width, n.height, rotation, 2,
                                            dashed ? 1 : 0, n.measure, true);
    });
}

TEST_P(HostileDrawing, Ellipse) {
    forEachWay([this](int rotation, bool antialias) {
        return surface.DrawOverlayEllipse(n.x, n.y, n.width, n.height, rotation, n.measure, 0,
                                          antialias);
    });
}

TEST_P(HostileDrawing, DashedEllipse) {
    for (const int thickness : Thicknesses) {
        forEachWay([this, thickness](int rotation, bool antialias) {
            return surface.DrawOverlayEllipse(n.x, n.y, n.width, n.height, rotation, thickness, 1,
                                              antialias);
        });
    }
}

TEST_P(HostileDrawing, Line) {
    forEachWay([this](int rotation, bool antialias) {
        return surface.DrawOverlayLine(n.x, n.y, n.width, n.height, rotation, 3, 0, n.measure,
                                       antialias);
    });
}

TEST_P(HostileDrawing, ThickLine) {
    forEachWay([this](int rotation, bool antialias) {
        return surface.DrawOverlayLine(n.x, n.y, n.width, n.height, rotation, n.measure, 0, n.width,
                                       antialias);
    });
}

TEST_P(HostileDrawing, DashedLine) {
    for (const int thickness : Thicknesses) {
        forEachWay([this, thickness](int rotation, bool antialias) {
            return surface.DrawOverlayLine(n.x, n.y, n.width, n.height, rotation, thickness, 1,
                                           n.measure, antialias);
        });
    }
}

TEST_P(HostileDrawing, ImageInABox) {
    for (const int aspect : {0, 1, 2}) {
        forEachWay([this, aspect](int rotation, bool) {
            return surface.DrawOverlayImage(file, n.x, n.y, 100, 100, n.width, n.height, rotation,
                                            aspect);
        });
    }
}

TEST_P(HostileDrawing, ImageAtAPercentage) {
    forEachWay([this](int rotation, bool) {
        return surface.DrawOverlayImage(file, n.x, n.y, n.measure, n.measure, -1, -1, rotation, 0);
    });
}

TEST_P(HostileDrawing, Text) {
    surface.SetFont(textFamily(), 10, 96, false, false, false);
    for (const int flags : {0, 0x1084, 0x42, -1, n.measure}) {
        forEachWay([this, flags](int rotation, bool) {
            return surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711"), n.x, n.y,
                                                      n.width, n.height, flags, rotation);
        });
    }
}

TEST_P(HostileDrawing, TextOfAnyFontSize) {
    for (const int dpi : {96, 203, Highest}) {
        surface.SetFont(textFamily(), n.measure, dpi, true, true, true);
        forEachWay([this](int rotation, bool bounded) {
            return bounded ? surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711"), 10,
                                                                10, 60, 40, 0x1000, rotation)
                           : surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711"), 10,
                                                                10, -1, -1, 0, rotation);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(
    Drawing, HostileDrawing,
    testing::Values(
        NumbersRow{{"AllHighest"}, Highest, Highest, Highest, Highest, Highest},
        NumbersRow{{"AllLowest"}, Lowest, Lowest, Lowest, Lowest, Lowest},
        NumbersRow{{"AllZero"}, 0, 0, 0, 0, 0}, NumbersRow{{"AllMinusOne"}, -1, -1, -1, -1, -1},
        NumbersRow{{"HighestSizeAtTheOrigin"}, 0, 0, Highest, Highest, Highest},
        NumbersRow{
            {"HighestSizeAroundTheSurface"}, -1073741824, -1073741824, Highest, Highest, Highest},
        NumbersRow{{"HighestSizeFromTheLowestPosition"}, Lowest, Lowest, Highest, Highest, Highest},
        NumbersRow{{"LowestSizeInside"}, 50, 40, Lowest, Lowest, Lowest},
        NumbersRow{{"FarRight"}, Highest, 10, 50, 20, 40},
        NumbersRow{{"FarAbove"}, 10, Lowest, 50, 20, 40},
        NumbersRow{{"WideAndLow"}, 10, 10, Highest, 1, 1000000000},
        NumbersRow{{"NarrowAndTall"}, 10, 10, 1, Highest, 1000000000},
        NumbersRow{{"MillionDots"}, -500000, -500000, 1000000, 1000000, 1000000},
        NumbersRow{{"BeyondSixteenBits"}, -40000, -40000, 80000, 80000, 70000}),
    RuleAsName());

// Bounded by what is asked, what lies on the surface stays what it would be on paper of any size.

TEST(FarReachingShape, LineCrossesTheWholeSurface) {
    VelnorImage surface(100, 80);
    surface.DrawOverlayLine(-1000000000, 20, -1, -1, 0, 4, 0, 2000000000, false);
    EXPECT_EQ(inkOf(*surface.picture()), QRect(0, 20, 100, 4));
    EXPECT_EQ(inkDots(*surface.picture()), 400);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(-1000000000, 20, 2000000000, 4));
}

TEST(FarReachingShape, RectangleShowsTheEdgesThatLieOnTheSurface) {
    VelnorImage surface(100, 80);
    surface.DrawOverlayRectangle(10, 20, 1000000000, 1000000000, 0, 4, 0, 0, false);
    QImage expected = whiteSurface(100, 80);
    QPainter painter(&expected);
    painter.fillRect(8, 18, 92, 4, Qt::black);
    painter.fillRect(8, 18, 4, 62, Qt::black);
    painter.end();
    EXPECT_TRUE(samePicture(*surface.picture(), expected));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(10, 20, 1000000000, 1000000000));
    EXPECT_EQ(surface.getCurrentY(), 1000000020);
}

TEST(FarReachingShape, DashesKeepTheirPlaceOnALongLine) {
    VelnorImage surface(100, 80);
    surface.DrawOverlayLine(-30003, 20, -1, -1, 0, 4, 1, 60000, false);
    for (int x = 0; x < 100; ++x) {
        const bool dash = (x + 30003) % 12 < 8;
        EXPECT_EQ(surface.picture()->pixel(x, 21) == 0xff000000, dash) << x;
    }
}

TEST(FarReachingShape, DashesStartAtTheStartOfALineWithoutEnd) {
    VelnorImage surface(100, 80);
    surface.DrawOverlayLine(10, 20, -1, -1, 0, 1, 1, Highest, false);
    for (int x = 10; x < 100; ++x) {
        const bool dash = (x - 10) % 3 < 2;
        EXPECT_EQ(surface.picture()->pixel(x, 20) == 0xff000000, dash) << x;
    }
}

TEST(FarReachingShape, EnlargedImageCoversTheSurfaceWithItsFirstDot) {
    const ScratchFolder folder;
    const QString file = writePicture(folder, QStringLiteral("p.png"), colourfulPicture(20, 10));
    VelnorImage surface(100, 80);
    EXPECT_EQ(surface.DrawOverlayImage(file, 0, 0, 1000000, 1000000, -1, -1, 0, 0), 0);
    EXPECT_EQ(surface.picture()->pixel(99, 79), colourfulPicture(20, 10).pixel(0, 0));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(0, 0, 200000, 100000));
}

} // namespace
