#include "render/sheet.h"
#include "render/velnorimage.h"
#include "support/picture_files.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/text_fonts.h"
#include "support/white_surface.h"

namespace {

TEST(Surface, IsAnOpaqueWhitePictureOfItsSize) {
    const VelnorImage surface(120, 80);
    ASSERT_NE(surface.picture(), nullptr);
    EXPECT_EQ(surface.picture()->format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_TRUE(samePicture(*surface.picture(), whiteSurface(120, 80)));
}

TEST(Surface, Claims96DotsPerInchWhileDrawing) {
    const VelnorImage surface(10, 10);
    EXPECT_EQ(surface.picture()->dotsPerMeterX(), 3780);
    EXPECT_EQ(surface.picture()->dotsPerMeterY(), 3780);
}

TEST(Surface, HasCoveredNothingAndHasNoFontWhenNew) {
    const VelnorImage surface(10, 10);
    EXPECT_EQ(surface.getCurrentY(), 0);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(0, 0, 0, 0));
    EXPECT_EQ(surface.currentFont(), nullptr);
}

TEST(Surface, KeepsTheCurrentYThatItIsGiven) {
    VelnorImage surface(10, 10);
    surface.setCurrentY(4711);
    EXPECT_EQ(surface.getCurrentY(), 4711);
    surface.setCurrentY(-5);
    EXPECT_EQ(surface.getCurrentY(), -5);
}

TEST(Surface, OfASheetIsReplacedByANewEmptyOneThatIsWritten) {
    const auto sheet = std::make_shared<velnor::Sheet>(50, 50, velnor::Margins());
    sheet->whiten(50);
    VelnorImage surface(sheet, VelnorImage::Painting::Everything);
    surface.CreateBaseEmptyImage(30, 20);
    EXPECT_EQ(surface.finishedPicture(203, 0, 0, 0, 0).size(), QSize(30, 20));
}

TEST(Surface, IsReplacedByANewEmptyOne) {
    VelnorImage surface(50, 50);
    surface.DrawOverlayLine(0, 10, 50, 4, 0, 4, 0, 50, false);
    EXPECT_EQ(surface.CreateBaseEmptyImage(30, 20), 0);
    EXPECT_TRUE(samePicture(*surface.picture(), whiteSurface(30, 20)));
    EXPECT_EQ(surface.picture()->dotsPerMeterX(), 3780);
}

TEST(Surface, ResizeDoesNothing) {
    VelnorImage surface(50, 40);
    surface.DrawOverlayLine(0, 10, 50, 4, 0, 4, 0, 50, false);
    const QImage before = surface.picture()->copy();
    EXPECT_EQ(surface.ResizeImage(7, 9), 0);
    EXPECT_TRUE(samePicture(*surface.picture(), before));
}

class SurfaceFromFile : public testing::Test {
protected:
    ScratchFolder folder;
    VelnorImage surface{10, 10};
};

TEST_F(SurfaceFromFile, HasTheSizeAndTheContentOfTheFile) {
    const QImage picture = colourfulPicture(37, 23);
    const QString path = writePicture(folder, QStringLiteral("base.png"), picture);
    EXPECT_EQ(surface.CreateBaseImage(path.toLatin1().constData()), 0);
    EXPECT_TRUE(samePicture(*surface.picture(), picture));
    EXPECT_EQ(surface.picture()->dotsPerMeterX(), 3780);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(0, 0, 37, 23));
    EXPECT_EQ(surface.getCurrentY(), 23);
}

TEST_F(SurfaceFromFile, IsWhiteWhereTheFileIsTransparent) {
    QImage picture(8, 8, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    const QString path = writePicture(folder, QStringLiteral("clear.png"), picture);
    surface.CreateBaseImage(path.toLatin1().constData());
    EXPECT_TRUE(samePicture(*surface.picture(), whiteSurface(8, 8)));
}

TEST_F(SurfaceFromFile, ReadsThePathAsLatin1) {
    const QString path =
        writePicture(folder, QString::fromLatin1("\xfc.png"), colourfulPicture(3, 5));
    surface.CreateBaseImage(path.toLatin1().constData());
    EXPECT_EQ(surface.picture()->size(), QSize(3, 5));
}

TEST_F(SurfaceFromFile, IsNullForAFileThatCannotBeReadYetSucceeds) {
    const QtMessages messages;
    const QString garbage = folder.write(QStringLiteral("garbage.png"), "no picture");
    EXPECT_EQ(surface.CreateBaseImage(garbage.toLatin1().constData()), 0);
    EXPECT_TRUE(surface.picture()->isNull());
    EXPECT_EQ(surface.CreateBaseImage(folder.path(QStringLiteral("none.png")).toLatin1()), 0);
    EXPECT_TRUE(surface.picture()->isNull());
    EXPECT_EQ(messages.heard(), "");
}

struct SizeRow : Row {
    int width;
    int height;
};

class NullSurface : public testing::TestWithParam<SizeRow> {
protected:
    VelnorImage surface{GetParam().width, GetParam().height};
};

TEST_P(NullSurface, HasNoPicture) {
    EXPECT_TRUE(surface.picture() == nullptr || surface.picture()->isNull());
}

TEST_P(NullSurface, IsNeverDrawnOn) {
    registerTextFonts();
    const ScratchFolder folder;
    const QString file = writePicture(folder, QStringLiteral("p.png"), colourfulPicture(4, 4));
    const QtMessages messages;
    EXPECT_EQ(surface.DrawOverlayRectangle(1, 2, 30, 40, 0, 1, 0, 0, false), -1);
    EXPECT_EQ(surface.DrawOverlayEllipse(1, 2, 30, 40, 0, 1, 0, false), -1);
    EXPECT_EQ(surface.DrawOverlayLine(1, 2, 30, 40, 0, 1, 0, 30, false), -1);
    EXPECT_EQ(surface.DrawOverlayImage(file, 1, 2, 100, 100, -1, -1, 0, 0), -1);
    EXPECT_EQ(surface.SetFont(textFamily(), 10, 96, false, false, false), 0);
    EXPECT_EQ(surface.DrawOverlayText(QStringLiteral("x"), 1, 2, 0), -1);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(0, 0, 0, 0));
    EXPECT_EQ(surface.getCurrentY(), 0);
    EXPECT_EQ(messages.heard(), "");
}

INSTANTIATE_TEST_SUITE_P(Surface, NullSurface,
                         testing::Values(SizeRow{{"WidthNotGiven"}, -1, 100},
                                         SizeRow{{"HeightNotGiven"}, 100, -1},
                                         SizeRow{{"WidthOfZero"}, 0, 100},
                                         SizeRow{{"HeightOfZero"}, 100, 0},
                                         SizeRow{{"BeyondTheLimit"}, 16000, 16001}),
                         RuleAsName());

} // namespace
