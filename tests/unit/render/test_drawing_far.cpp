// Items beyond the dots that a painter of Qt reaches look as they do near the origin.
#include "render/velnorimage.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"

#include <algorithm>
#include <functional>

namespace {

constexpr int Long = 42000;
constexpr int Around = 150; // dots about the position of an item
constexpr int Near = 750;
constexpr int Straddling = 32000 + Near; // begins before the dot 32,767 and ends after it
constexpr int Far = 40000 + Near;

using DrawAt = std::function<int(VelnorImage& surface, int x, int y)>;

struct ItemRow : Row {
    DrawAt draw;
};

int drawText(VelnorImage& surface, int size, bool antialias, const QRect& place, int rotation) {
    surface.SetFont(textFamily(), size, 96, false, true, antialias);
    return surface.DrawOverlayRectBoundedText(QStringLiteral("Ticket 4711 to Hamburg"), place.x(),
                                              place.y(), place.width(), place.height(),
                                              Qt::TextWordWrap | Qt::AlignCenter, rotation);
}

int drawPicture(VelnorImage& surface, int x, int y, int percent, int rotation) {
    return surface.DrawOverlayPicture(colourfulPicture(40, 30), x, y, percent, percent, -1, -1,
                                      rotation, 0);
}

const ItemRow Items[] = {
    {{"Rectangle"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayRectangle(x, y, 90, 80, 0, 3, 0, 0, false);
     }},
    {{"DashedRectangle"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayRectangle(x, y, 91, 80, 0, 5, 1, 0, false);
     }},
    {{"RoundedRectangleTurned"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayRectangle(x, y, 90, 81, 33, 2, 0, 12, true);
     }},
    {{"Ellipse"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayEllipse(x, y, 91, 80, 0, 2, 0, false);
     }},
    {{"DashedEllipseAntialiased"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayEllipse(x, y, 90, 63, -20, 4, 1, true);
     }},
    {{"ThinEllipse"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayEllipse(x, y, 90, 80, 0, 0, 0, false);
     }},
    {{"LineTurned"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayLine(x, y, -1, -1, 45, 3, 0, 100, false);
     }},
    {{"LineBackwards"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayLine(x, y, 5, -1, 257, 4, 1, -100, true);
     }},
    {{"ThickLine"},
     [](VelnorImage& surface, int x, int y) {
         return surface.DrawOverlayLine(x, y, -1, -1, 90, 20, 0, 90, false);
     }},
    {{"TextInAWidth"},
     [](VelnorImage& surface, int x, int y) {
         return drawText(surface, 12, false, {x, y, 90, -1}, 0);
     }},
    {{"TextInABoxAntialiased"},
     [](VelnorImage& surface, int x, int y) {
         return drawText(surface, 14, true, {x, y, 100, 60}, 0);
     }},
    {{"TextTurned"},
     [](VelnorImage& surface, int x, int y) {
         return drawText(surface, 11, true, {x, y, 100, 60}, 30);
     }},
    {{"TextUpsideDown"},
     [](VelnorImage& surface, int x, int y) {
         return drawText(surface, 11, false, {x, y, 90, -1}, 180);
     }},
    {{"LargeText"},
     [](VelnorImage& surface, int x, int y) {
         surface.SetFont(textFamily(), 60, 96, true, true, true);
         return surface.DrawOverlayRectBoundedText(QStringLiteral("Af"), x, y, -1, -1, 0, 15);
     }},
    {{"Picture"},
     [](VelnorImage& surface, int x, int y) { return drawPicture(surface, x, y, 100, 0); }},
    {{"PictureTurned"},
     [](VelnorImage& surface, int x, int y) { return drawPicture(surface, x, y, 100, 45); }},
    {{"PictureEnlarged"},
     [](VelnorImage& surface, int x, int y) { return drawPicture(surface, x, y, 270, 0); }},
    {{"PictureReducedAndTurned"},
     [](VelnorImage& surface, int x, int y) { return drawPicture(surface, x, y, 33, 90); }},
};

class FarItem : public testing::TestWithParam<ItemRow> {
protected:
    FarItem() { registerTextFonts(); }
    void TearDown() override { EXPECT_EQ(messages.heard(), ""); }

    struct Drawn {
        QImage dots;    // about the position
        QRectF covered; // relative to the position
    };
    static Drawn drawnAt(const QPoint& position, const QSize& size) {
        VelnorImage surface(size.width(), size.height());
        EXPECT_EQ(GetParam().draw(surface, position.x(), position.y()), 0);
        const QPoint corner = position - QPoint(Around, Around);
        const QImage dots = surface.picture()->copy({corner, QSize(2 * Around, 2 * Around)});
        EXPECT_EQ(inkDots(*surface.picture()), inkDots(dots));
        return {dots, surface.lastBoundingRect().translated(-position)};
    }
    static void expectTheSame(const Drawn& far, const Drawn& near) {
        EXPECT_GT(inkDots(near.dots), 100);
        EXPECT_TRUE(samePicture(far.dots, near.dots));
        EXPECT_NEAR(far.covered.bottom(), near.covered.bottom(), 1e-9);
    }

    const QtMessages messages;
};

TEST_P(FarItem, LooksTheSameFarDown) {
    const Drawn near = drawnAt({Around, Near}, {2 * Around, 1000});
    for (const int y : {Straddling, Far}) {
        expectTheSame(drawnAt({Around, y}, {2 * Around, Long}), near);
    }
}

TEST_P(FarItem, LooksTheSameFarToTheRight) {
    const Drawn near = drawnAt({Near, Around}, {1000, 2 * Around});
    for (const int x : {Straddling, Far}) {
        expectTheSame(drawnAt({x, Around}, {Long, 2 * Around}), near);
    }
}

INSTANTIATE_TEST_SUITE_P(Drawing, FarItem, testing::ValuesIn(Items), RuleAsName());

TEST(FarText, KeepsWhatReachesOutOfItsBox) {
    registerTextFonts();
    VelnorImage surface(Long, 100);
    surface.SetFont(textFamily(), 30, 96, false, true, false);
    for (const int x : {1000, 40000}) {
        surface.DrawOverlayRectBoundedText(QStringLiteral("j"), x, 10, -1, -1, 0, 0);
    }
    const QImage near = surface.picture()->copy(900, 0, 200, 100);
    EXPECT_LT(inkOf(near).left(), 100);
    EXPECT_TRUE(samePicture(surface.picture()->copy(39900, 0, 200, 100), near));
}

// Items that no painter reaches the end of.

constexpr int End = 80000;

struct LongItemRow : Row {
    std::function<int(VelnorImage& surface)> draw;
    int period; // of so many rows, one has ink
};

const LongItemRow LongItems[] = {
    {{"Rectangle"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayRectangle(10, 10, 60, End - 20, 0, 4, 0, 0, false);
     },
     1},
    {{"RoundedRectangle"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayRectangle(10, 10, 60, End - 20, 0, 4, 0, 9, true);
     },
     1},
    {{"DashedRectangle"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayRectangle(10, 10, 60, End - 20, 0, 4, 1, 0, false);
     },
     12},
    {{"Ellipse"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayEllipse(10, 10, 60, End - 20, 0, 3, 0, true);
     },
     1},
    {{"DashedLine"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayLine(50, 10, -1, -1, 90, 3, 1, End - 20, false);
     },
     9},
    {{"Picture"},
     [](VelnorImage& surface) {
         return surface.DrawOverlayPicture(colourfulPicture(2, 2), 10, 10, 100, 100, 60, End - 20,
                                           0, 0);
     },
     1},
    {{"Text"},
     [](VelnorImage& surface) {
         surface.SetFont(textFamily(), 12, 96, false, false, false);
         return surface.DrawOverlayRectBoundedText(QStringLiteral("m\n").repeated(End / 10), 10, 10,
                                                   -1, -1, 0, 0);
     },
     30},
};

class LongItem : public testing::TestWithParam<LongItemRow> {};

bool hasInk(const QImage& picture, int y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    return std::any_of(row, row + picture.width(), [](QRgb dot) { return dot != 0xffffffff; });
}

TEST_P(LongItem, HasNoGap) {
    registerTextFonts();
    VelnorImage surface(100, End);
    ASSERT_EQ(GetParam().draw(surface), 0);
    int last = 0;
    for (int y = 0; y < End; ++y) {
        if (hasInk(*surface.picture(), y)) {
            EXPECT_LE(y - last, qMax(GetParam().period, last == 0 ? 20 : 0)) << y;
            last = y;
        }
    }
    EXPECT_GT(last, End - 30);
}

INSTANTIATE_TEST_SUITE_P(Drawing, LongItem, testing::ValuesIn(LongItems), RuleAsName());

TEST(LongItem, CrossesAWideSurface) {
    VelnorImage surface(End, 100);
    surface.DrawOverlayLine(-1000, 20, -1, -1, 0, 4, 0, End + 2000, false);
    EXPECT_EQ(inkOf(*surface.picture()), QRect(0, 20, End, 4));
    EXPECT_EQ(inkDots(*surface.picture()), 4 * End);
}

} // namespace
