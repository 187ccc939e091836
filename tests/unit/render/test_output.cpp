#include "render/velnorimage.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/scratch_folder.h"
#include "support/white_surface.h"

#include <QFile>

#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Written = -1;
constexpr int NotWritten = 0;

struct RollMarginRow : Row {
    int y;
    int dpi;
    int expected;
};

class RollMargin : public testing::TestWithParam<RollMarginRow> {};

TEST_P(RollMargin, IsTwoMillimetresBelowTheY) {
    EXPECT_EQ(VelnorImage::addRollMargin(GetParam().y, GetParam().dpi), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Output, RollMargin,
    testing::Values(RollMarginRow{{"SixteenDotsAt203Dpi"}, 0, 203, 16},
                    RollMarginRow{{"TwentyFourDotsAt300Dpi"}, 0, 300, 24},
                    RollMarginRow{{"EightDotsAt96Dpi"}, 0, 96, 8},
                    RollMarginRow{{"IsAddedToTheY"}, 100, 203, 116},
                    RollMarginRow{{"IsAddedToANegativeY"}, -100, 203, -84},
                    RollMarginRow{{"NothingAtZeroDpi"}, 7, 0, 7},
                    RollMarginRow{{"HalvesGoUpward"}, 0, 127, 10},
                    RollMarginRow{{"DoublingTheDpiDoesNotWrap"}, 0, 1100000000, 86614173},
                    RollMarginRow{{"SumSaturates"}, Highest, 203, Highest}),
    RuleAsName());

// A picture with a black dot in each corner and a half transparent dot in the middle.
QImage cornerPicture(int width, int height) {
    QImage picture = whiteSurface(width, height);
    picture.setPixel(0, 0, 0xff000000);
    picture.setPixel(width - 1, 0, 0xff000000);
    picture.setPixel(0, height - 1, 0xff000000);
    picture.setPixel(width - 1, height - 1, 0xff000000);
    picture.setPixel(width / 2, height / 2, 0x80402010);
    return picture;
}

TEST(Margins, FrameThePictureInWhite) {
    const QImage source = cornerPicture(20, 10);
    const QImage framed = VelnorImage::ApplyMarginsToImage(source, 1, 2, 3, 4);
    EXPECT_EQ(framed.size(), QSize(24, 16));
    EXPECT_EQ(framed.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(inkOf(framed), QRect(1, 2, 20, 10));
    EXPECT_TRUE(samePicture(framed.copy(1, 2, 20, 10), source));
}

TEST(Margins, CopyAlphaAsItIs) {
    QImage source = whiteSurface(3, 1);
    source.setPixel(0, 0, 0x00000000);
    source.setPixel(1, 0, 0x80402010);
    const QImage framed = VelnorImage::ApplyMarginsToImage(source, 2, 2, 2, 2);
    const auto* row = reinterpret_cast<const QRgb*>(framed.constScanLine(2));
    EXPECT_EQ(row[1], 0xffffffff);
    EXPECT_EQ(row[2], 0x00000000U);
    EXPECT_EQ(row[3], reinterpret_cast<const QRgb*>(source.constScanLine(0))[1]);
    EXPECT_EQ(row[4], 0xffffffff);
}

TEST(Margins, OfZeroChangeNothing) {
    const QImage source = cornerPicture(20, 10);
    EXPECT_TRUE(samePicture(VelnorImage::ApplyMarginsToImage(source, 0, 0, 0, 0), source));
}

TEST(Margins, BelowZeroCutThePicture) {
    const QImage source = cornerPicture(20, 10);
    const QImage framed = VelnorImage::ApplyMarginsToImage(source, -5, -2, -1, 3);
    EXPECT_TRUE(samePicture(framed.copy(0, 0, 14, 8), source.copy(5, 2, 14, 8)));
    EXPECT_EQ(framed.size(), QSize(14, 11));
}

TEST(Margins, KeepTheRowsThatAPainterDoesNotReach) {
    QImage source = whiteSurface(4, 40000);
    source.setPixel(1, 39999, 0xff000000);
    const QImage framed = VelnorImage::ApplyMarginsToImage(source, 1, 2, 3, 4);
    EXPECT_EQ(inkOf(framed), QRect(2, 40001, 1, 1));
}

TEST(Margins, AroundNoPictureMakeAPictureOfThemselves) {
    const QtMessages messages;
    EXPECT_TRUE(
        samePicture(VelnorImage::ApplyMarginsToImage(QImage(), 1, 2, 3, 4), whiteSurface(4, 6)));
    EXPECT_TRUE(VelnorImage::ApplyMarginsToImage(QImage(), 0, 0, 0, 0).isNull());
    EXPECT_EQ(messages.heard(), "");
}

// The sum of the margins is small, each of them is not.
TEST(Margins, ThatPushThePictureFarOutLeaveWhite) {
    const QImage source = cornerPicture(20, 10);
    for (const int far : {Highest, Highest - 5, -Highest, 1000000000, -1000000000}) {
        EXPECT_TRUE(samePicture(VelnorImage::ApplyMarginsToImage(source, far, 0, -far, 0),
                                whiteSurface(20, 10)))
            << far;
        EXPECT_TRUE(samePicture(VelnorImage::ApplyMarginsToImage(source, 0, far, 0, -far),
                                whiteSurface(20, 10)))
            << far;
    }
}

struct HostileMarginRow : Row {
    int left;
    int top;
    int right;
    int bottom;
};

class HostileMargins : public testing::TestWithParam<HostileMarginRow> {};

TEST_P(HostileMargins, GiveNoPictureAndNoFile) {
    const QtMessages messages;
    const ScratchFolder folder;
    const HostileMarginRow& row = GetParam();
    EXPECT_TRUE(VelnorImage::ApplyMarginsToImage(whiteSurface(9, 9), row.left, row.top, row.right,
                                                 row.bottom)
                    .isNull());
    const VelnorImage surface(9, 9);
    EXPECT_EQ(surface.SaveImage(folder.utf8Path(QStringLiteral("o.png")), 203, row.left, row.top,
                                row.right, row.bottom),
              NotWritten);
    EXPECT_EQ(folder.files(), QStringList());
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Output, HostileMargins,
    testing::Values(HostileMarginRow{{"Highest"}, Highest, Highest, Highest, Highest},
                    HostileMarginRow{{"Lowest"}, -Highest, -Highest, -Highest, -Highest},
                    HostileMarginRow{{"SumsThatWrapToASmallPicture"}, Highest, Highest, Highest, 5},
                    HostileMarginRow{{"BeyondTheSurfaceLimit"}, 100000, 100000, 100000, 100000},
                    HostileMarginRow{{"CutToNothing"}, -5, 0, -4, 0}),
    RuleAsName());

class Output : public testing::Test {
protected:
    QByteArray file(const char* name) const { return folder.utf8Path(QString::fromLatin1(name)); }
    QImage saved(const char* name) const { return QImage(folder.path(QString::fromLatin1(name))); }

    ScratchFolder folder;
};

TEST_F(Output, OfASurfaceHasMarginsAndResolution) {
    VelnorImage surface(576, 200);
    surface.DrawOverlayRectangle(0, 0, 575, 199, 0, 1, 0, 0, false);
    ASSERT_EQ(surface.SaveImage(file("t.png"), 203, 10, 20, 30, 40), Written);
    const QImage picture = saved("t.png");
    EXPECT_EQ(picture.size(), QSize(616, 260));
    EXPECT_EQ(inkOf(picture), QRect(10, 20, 576, 200));
    EXPECT_TRUE(samePicture(picture.copy(10, 20, 576, 200), *surface.picture()));
    EXPECT_EQ(picture.dotsPerMeterX(), 7992);
    EXPECT_EQ(picture.dotsPerMeterY(), 7992);
}

struct ResolutionRow : Row {
    int dpi;
    int dotsPerMetre;
};

constexpr int OfANewPicture = 3780;

// Into a BMP file, which has a place for a negative resolution. A PNG file is left without one then.
class Resolution : public Output, public testing::WithParamInterface<ResolutionRow> {};

TEST_P(Resolution, IsThatOfTheDpi) {
    const VelnorImage surface(10, 10);
    ASSERT_EQ(surface.SaveImage(file("t.bmp"), GetParam().dpi, 0, 0, 0, 0), Written);
    EXPECT_EQ(saved("t.bmp").dotsPerMeterX(), GetParam().dotsPerMetre);
    EXPECT_EQ(saved("t.bmp").dotsPerMeterY(), GetParam().dotsPerMetre);
}

INSTANTIATE_TEST_SUITE_P(Output, Resolution,
                         testing::Values(ResolutionRow{{"OfARollPrinter"}, 203, 7992},
                                         ResolutionRow{{"Of300Dpi"}, 300, 11811},
                                         ResolutionRow{{"MinusOneIsNotSet"}, -1, OfANewPicture},
                                         ResolutionRow{{"ZeroIsNoneForQt"}, 0, OfANewPicture},
                                         ResolutionRow{{"BelowMinusOneIsSet"}, -2, -79},
                                         ResolutionRow{{"FarBelowZeroIsSet"}, -203, -7992}),
                         RuleAsName());

TEST_F(Output, DoesNotTouchTheSurface) {
    VelnorImage surface(10, 10);
    surface.SetCropAtCurrentY(true);
    surface.SaveImage(file("t.png"), 203, 1, 1, 1, 1);
    EXPECT_EQ(surface.picture()->size(), QSize(10, 10));
    EXPECT_EQ(surface.picture()->dotsPerMeterX(), 3780);
}

TEST_F(Output, IsNotCroppedUnlessAsked) {
    VelnorImage surface(40, 300);
    surface.setCurrentY(100);
    surface.SaveImage(file("t.png"), 203, 0, 0, 0, 0);
    EXPECT_EQ(saved("t.png").size(), QSize(40, 300));
}

TEST_F(Output, IsCroppedBelowTheCurrentYAndTheRollMargin) {
    VelnorImage surface(40, 300);
    surface.DrawOverlayRectangle(0, 0, 39, 299, 0, 1, 0, 0, false);
    surface.setCurrentY(100);
    surface.SetCropAtCurrentY(true);
    surface.SaveImage(file("t.png"), 203, 0, 0, 0, 0);
    EXPECT_TRUE(samePicture(saved("t.png"), surface.picture()->copy(0, 0, 40, 116)));
}

TEST_F(Output, IsTransparentBelowASurfaceThatEndsBeforeTheCrop) {
    VelnorImage surface(40, 50);
    surface.setCurrentY(100);
    surface.SetCropAtCurrentY(true);
    surface.SaveImage(file("t.png"), 203, 0, 5, 0, 5);
    const QImage picture = saved("t.png").convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(picture.size(), QSize(40, 126));
    QImage clear(40, 66, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    EXPECT_TRUE(isAllWhite(picture.copy(0, 0, 40, 55)));
    EXPECT_TRUE(samePicture(picture.copy(0, 55, 40, 66), clear));
    EXPECT_TRUE(isAllWhite(picture.copy(0, 121, 40, 5)));
}

TEST_F(Output, CanBeCroppedToNothingButItsMargins) {
    VelnorImage surface(40, 50);
    surface.setCurrentY(-16);
    surface.SetCropAtCurrentY(true);
    EXPECT_EQ(surface.SaveImage(file("none.png"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(folder.files(), QStringList());
}

TEST_F(Output, CroppedFarBelowTheSurfaceIsNoPicture) {
    VelnorImage surface(576, 50);
    surface.setCurrentY(Highest);
    surface.SetCropAtCurrentY(true);
    EXPECT_EQ(surface.SaveImage(file("none.png"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(folder.files(), QStringList());
}

TEST_F(Output, FollowsTheSuffixOfTheName) {
    const VelnorImage surface(4, 4);
    EXPECT_EQ(surface.SaveImage(file("t.png"), 203, 0, 0, 0, 0), Written);
    EXPECT_EQ(surface.SaveImage(file("t.BMP"), 203, 0, 0, 0, 0), Written);
    QFile png(folder.path(QStringLiteral("t.png")));
    QFile bmp(folder.path(QStringLiteral("t.BMP")));
    ASSERT_TRUE(png.open(QIODevice::ReadOnly) && bmp.open(QIODevice::ReadOnly));
    EXPECT_EQ(png.read(4), QByteArrayLiteral("\x89PNG"));
    EXPECT_EQ(bmp.read(2), QByteArrayLiteral("BM"));
}

TEST_F(Output, ReadsTheNameAsUtf8) {
    const VelnorImage surface(4, 4);
    EXPECT_EQ(surface.SaveImage(file("x") + "\xc3\xbc.png", 203, 0, 0, 0, 0), Written);
    EXPECT_TRUE(QFile::exists(folder.path(QStringLiteral("x\u00fc.png"))));
}

TEST_F(Output, GivesZeroWhereNothingCanBeWritten) {
    const QtMessages messages;
    const VelnorImage surface(4, 4);
    EXPECT_EQ(surface.SaveImage(file("missing/t.png"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(surface.SaveImage(file("t.unknown"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(surface.SaveImage(file("nosuffix"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(surface.SaveImage("", 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(surface.SaveImageBmp(file("missing/t"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(messages.heard(), "");
}

TEST_F(Output, LeavesAFileOfThatNameAloneWhereItCannotWriteAPicture) {
    folder.write(QStringLiteral("old.unknown"), "old");
    folder.write(QStringLiteral("old.png"), "old");
    EXPECT_EQ(VelnorImage(4, 4).SaveImage(file("old.unknown"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(VelnorImage(-1, 4).SaveImage(file("old.png"), 203, 0, 0, 0, 0), NotWritten);
    for (const char* name : {"old.unknown", "old.png"}) {
        QFile old(folder.path(QString::fromLatin1(name)));
        ASSERT_TRUE(old.open(QIODevice::ReadOnly));
        EXPECT_EQ(old.readAll().toStdString(), "old") << name;
    }
}

TEST_F(Output, OfANullSurfaceIsTheMarginsAlone) {
    const QtMessages messages;
    const VelnorImage surface(-1, 100);
    EXPECT_EQ(surface.SaveImage(file("t.png"), 203, 1, 2, 3, 4), Written);
    EXPECT_TRUE(samePicture(saved("t.png"), whiteSurface(4, 6)));
    EXPECT_EQ(surface.SaveImage(file("none.png"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(surface.SaveImageBmp(file("none.bmp"), 203, 0, 0, 0, 0), NotWritten);
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("t.png")));
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
