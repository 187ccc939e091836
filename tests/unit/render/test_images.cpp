#include "render/item_pictures.h"
#include "render/velnorimage.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

#include <QDir>
#include <QFile>

namespace {

constexpr int NoPercent = 100;

// A picture of 200 x 100 dots on a surface of 600 x 500.
class Images : public testing::Test {
protected:
    int draw(const QString& path, int x, int y, int scalex, int scaley, int width, int height,
             int rotation, int aspect) {
        return surface.DrawOverlayImage(path, x, y, scalex, scaley, width, height, rotation,
                                        aspect);
    }
    const QImage& drawn() const { return *surface.picture(); }

    ScratchFolder folder;
    VelnorImage surface{600, 500};
    QImage picture = colourfulPicture(200, 100);
    QString file = writePicture(folder, QStringLiteral("picture.png"), picture);
};

// Each dot as a block of `factorX` x `factorY` dots.
QImage enlarged(const QImage& picture, int factorX, int factorY) {
    QImage large(picture.width() * factorX, picture.height() * factorY, QImage::Format_RGB32);
    for (int y = 0; y < large.height(); ++y) {
        for (int x = 0; x < large.width(); ++x) {
            large.setPixel(x, y, picture.pixel(x / factorX, y / factorY));
        }
    }
    return large;
}

TEST_F(Images, OfNaturalSizeAreCopiedDotByDot) {
    EXPECT_EQ(draw(file, 30, 40, 100, 100, -1, -1, 0, 0), 0);
    EXPECT_TRUE(samePicture(drawn().copy(30, 40, 200, 100), picture));
    EXPECT_EQ(inkOf(drawn()), QRect(30, 40, 200, 100));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(30, 40, 200, 100));
    EXPECT_EQ(surface.getCurrentY(), 140);
}

TEST_F(Images, AtAnExactMultipleAreEnlargedDotByDot) {
    draw(file, 30, 40, 300, 200, -1, -1, 0, 0);
    EXPECT_TRUE(
        samePicture(drawn().copy(30, 40, 570, 200), enlarged(picture, 3, 2).copy(0, 0, 570, 200)));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(30, 40, 600, 200));
}

// Where the picture ends up, drawn at (10, 20), and which part of it is shown.
struct BoxRow : Row {
    int scalex;
    int scaley;
    int width;
    int height;
    int aspect;
    QRectF covered;
    QRect shown;
};

class ImageBox : public Images, public testing::WithParamInterface<BoxRow> {};

TEST_P(ImageBox, IsCoveredAsTheSizesAndTheAspectSay) {
    const BoxRow& row = GetParam();
    EXPECT_EQ(draw(file, 10, 20, row.scalex, row.scaley, row.width, row.height, 0, row.aspect), 0);
    EXPECT_EQ(surface.lastBoundingRect(), row.covered);
    EXPECT_EQ(surface.getCurrentY(), qRound(row.covered.bottom()));

    QImage expected = whiteSurface(600, 500);
    PlainPainter painter(expected);
    painter.translate(10, 20);
    painter.scale(row.covered.width() / row.shown.width(),
                  row.covered.height() / row.shown.height());
    painter.drawImage(0, 0, picture.copy(row.shown));
    painter.end();
    EXPECT_TRUE(samePicture(drawn(), expected));
}

const QRect Whole(0, 0, 200, 100);

INSTANTIATE_TEST_SUITE_P(
    Images, ImageBox,
    testing::Values(
        BoxRow{{"WidthAloneScalesBothDirections"}, 100, 100, 400, -1, 0, {10, 20, 400, 200}, Whole},
        BoxRow{{"HeightAloneScalesBothDirections"}, 100, 100, -1, 50, 0, {10, 20, 100, 50}, Whole},
        BoxRow{{"WidthIgnoresThePercentages"}, 300, 50, 100, 0, 0, {10, 20, 100, 50}, Whole},
        BoxRow{{"HeightIgnoresThePercentages"}, 300, 50, 0, 200, 0, {10, 20, 400, 200}, Whole},
        BoxRow{{"PercentagesScaleEachDirection"}, 50, 200, -1, -1, 0, {10, 20, 100, 200}, Whole},
        BoxRow{{"PercentagesOfZeroAreNatural"}, 0, 0, -1, -1, 0, {10, 20, 200, 100}, Whole},
        BoxRow{{"NegativePercentageIsNatural"}, -1, 200, -1, -1, 0, {10, 20, 200, 200}, Whole},
        BoxRow{{"SizesOfZeroUseThePercentages"}, 200, 100, 0, 0, 0, {10, 20, 400, 100}, Whole},
        BoxRow{{"StretchFillsTheBox"}, 100, 100, 400, 100, 0, {10, 20, 400, 100}, Whole},
        BoxRow{{"UnknownAspectStretches"}, 100, 100, 400, 100, 3, {10, 20, 400, 100}, Whole},
        BoxRow{{"NegativeAspectStretches"}, 100, 100, 400, 100, -1, {10, 20, 400, 100}, Whole},
        BoxRow{{"FitIsLimitedByTheHeight"}, 100, 100, 400, 100, 1, {10, 20, 200, 100}, Whole},
        BoxRow{{"FitIsLimitedByTheWidth"}, 100, 100, 100, 400, 1, {10, 20, 100, 50}, Whole},
        BoxRow{{"FillCutsTheBottom"}, 100, 100, 400, 100, 2, {10, 20, 400, 100}, {0, 0, 200, 50}},
        BoxRow{{"FillCutsTheRight"}, 100, 100, 100, 200, 2, {10, 20, 100, 200}, {0, 0, 50, 100}},
        BoxRow{{"FillOfTheSameShapeCutsNothing"}, 100, 100, 400, 200, 2, {10, 20, 400, 200}, Whole},
        BoxRow{{"FillCutsAtTruncatedColumns"},
               100,
               100,
               101,
               150,
               2,
               {10, 20, 100.5, 150},
               {0, 0, 67, 100}},
        BoxRow{{"FillCutsAtTruncatedRows"},
               100,
               100,
               300,
               101,
               2,
               {10, 20, 300, 100.5},
               {0, 0, 200, 67}},
        BoxRow{{"AspectWithoutABoxDoesNotCount"}, 100, 100, 400, -1, 2, {10, 20, 400, 200}, Whole}),
    RuleAsName());

TEST_F(Images, TurnedAQuarterBackStandOnTheirTopLeftCorner) {
    draw(file, 50, 300, 100, 100, -1, -1, -90, 0);
    const QRectF covered = surface.lastBoundingRect();
    EXPECT_NEAR(covered.x(), 50, 1e-9);
    EXPECT_NEAR(covered.y(), 100, 1e-9);
    EXPECT_NEAR(covered.width(), 100, 1e-9);
    EXPECT_NEAR(covered.height(), 200, 1e-9);
    EXPECT_EQ(surface.getCurrentY(), 300);
    EXPECT_TRUE(samePicture(drawn().copy(50, 100, 100, 200),
                            picture.transformed(QTransform().rotate(-90))));
    EXPECT_EQ(inkOf(drawn()), QRect(50, 100, 100, 200));
}

TEST_F(Images, TurnedBeyondAFullTurnStayUpright) {
    draw(file, 30, 40, 100, 100, -1, -1, 400, 0);
    EXPECT_TRUE(samePicture(drawn().copy(30, 40, 200, 100), picture));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(30, 40, 200, 100));
}

TEST_F(Images, TakeAnAngleOfMinusOneAsWritten) {
    draw(file, 100, 100, 100, 100, -1, -1, -1, 0);
    QImage expected = whiteSurface(600, 500);
    PlainPainter painter(expected);
    painter.translate(100, 100);
    painter.rotate(-1);
    painter.drawImage(0, 0, picture);
    painter.end();
    EXPECT_TRUE(samePicture(drawn(), expected));
}

TEST_F(Images, AreScaledBeforeTheyAreTurned) {
    draw(file, 300, 50, 100, 100, 400, 100, 90, 0);
    const QRectF covered = surface.lastBoundingRect();
    EXPECT_NEAR(covered.x(), 200, 1e-9);
    EXPECT_NEAR(covered.width(), 100, 1e-9);
    EXPECT_NEAR(covered.height(), 400, 1e-9);
    EXPECT_EQ(surface.getCurrentY(), 450);
}

TEST_F(Images, LeaveTheSurfaceWhereTheyAreTransparent) {
    QImage clear(4, 1, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    clear.setPixel(1, 0, qRgba(0, 0, 0, 255));
    clear.setPixel(2, 0, qRgba(0, 0, 0, 128));
    draw(writePicture(folder, QStringLiteral("clear.png"), clear), 10, 10, NoPercent, NoPercent, -1,
         -1, 0, 0);
    EXPECT_EQ(drawn().pixel(10, 10), qRgb(255, 255, 255));
    EXPECT_EQ(drawn().pixel(11, 10), qRgb(0, 0, 0));
    EXPECT_EQ(drawn().pixel(12, 10), qRgb(127, 127, 127));
    EXPECT_EQ(drawn().pixel(13, 10), qRgb(255, 255, 255));
}

TEST_F(Images, AreReadWhateverTheirSuffix) {
    ASSERT_TRUE(picture.save(folder.path(QStringLiteral("picture.txt")), "BMP"));
    EXPECT_EQ(draw(folder.path(QStringLiteral("picture.txt")), 30, 40, 100, 100, -1, -1, 0, 0), 0);
    EXPECT_TRUE(samePicture(drawn().copy(30, 40, 200, 100), picture));
}

TEST_F(Images, ThatAreMissingKeepWhatThePreviousDrawingCovered) {
    draw(file, 30, 40, 100, 100, -1, -1, 0, 0);
    const QImage before = drawn().copy();
    EXPECT_EQ(draw(folder.path(QStringLiteral("none.png")), 1, 2, 100, 100, -1, -1, 0, 0), -1);
    EXPECT_EQ(draw(QString(), 1, 2, 100, 100, -1, -1, 0, 0), -1);
    EXPECT_TRUE(samePicture(drawn(), before));
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(30, 40, 200, 100));
    EXPECT_EQ(surface.getCurrentY(), 140);
}

TEST_F(Images, OfANameWithAZeroCharacterAreSilentlyMissing) {
    const QtMessages messages;
    EXPECT_EQ(draw(file + QChar(0), 1, 2, 100, 100, -1, -1, 0, 0), -1);
    EXPECT_FALSE(velnor::ItemPictures().ofFile(file + QChar(0)).has_value());
    EXPECT_EQ(messages.heard(), "");
}

TEST_F(Images, InASearchPathAreDrawn) {
    QDir::addSearchPath(QStringLiteral("art"), folder.path(QString()));
    EXPECT_EQ(draw(QStringLiteral("art:picture.png"), 30, 40, 100, 100, -1, -1, 0, 0), 0);
    EXPECT_EQ(draw(QStringLiteral("art:none.png"), 30, 40, 100, 100, -1, -1, 0, 0), -1);
    QDir::setSearchPaths(QStringLiteral("art"), {});
    EXPECT_TRUE(samePicture(drawn().copy(30, 40, 200, 100), picture));
}

TEST_F(Images, ThatAreLinksToNothingAreMissing) {
    const QString link = folder.path(QStringLiteral("link.png"));
    ASSERT_TRUE(QFile::link(folder.path(QStringLiteral("none.png")), link));
    EXPECT_EQ(draw(link, 1, 2, 100, 100, -1, -1, 0, 0), -1);
}

// What Qt cannot read is drawn as an empty picture, in every way of scaling.
class UnreadableImage : public Images, public testing::WithParamInterface<BoxRow> {};

TEST_P(UnreadableImage, CoversNothingAtItsPosition) {
    const BoxRow& row = GetParam();
    const QString garbage = folder.write(QStringLiteral("garbage.png"), QByteArray(5000, 'x'));
    EXPECT_EQ(draw(garbage, 10, 20, row.scalex, row.scaley, row.width, row.height, 0, row.aspect),
              0);
    EXPECT_TRUE(isAllWhite(drawn()));
    EXPECT_EQ(surface.lastBoundingRect(), row.covered);
    EXPECT_EQ(surface.getCurrentY(), 20);
}

INSTANTIATE_TEST_SUITE_P(
    Images, UnreadableImage,
    testing::Values(BoxRow{{"OfNaturalSize"}, 100, 100, -1, -1, 0, {10, 20, 0, 0}, {}},
                    BoxRow{{"Scaled"}, 300, 50, -1, -1, 0, {10, 20, 0, 0}, {}},
                    BoxRow{{"WithAWidth"}, 100, 100, 400, -1, 0, {10, 20, 0, 0}, {}},
                    BoxRow{{"WithAHeight"}, 100, 100, -1, 400, 0, {10, 20, 0, 0}, {}},
                    BoxRow{{"Stretched"}, 100, 100, 400, 400, 0, {10, 20, 0, 0}, {}},
                    BoxRow{{"Fitted"}, 100, 100, 400, 400, 1, {10, 20, 0, 0}, {}},
                    BoxRow{{"Cut"}, 100, 100, 400, 400, 2, {10, 20, 0, 0}, {}}),
    RuleAsName());

} // namespace
