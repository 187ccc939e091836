#include "render/surface_painter.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

#include <gtest/gtest.h>

namespace {

constexpr int LineWidth = 2;

void drawEllipse(QPainter& painter) {
    painter.setPen(QPen(QBrush(Qt::black), LineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawEllipse(QRectF(10, 20, 100, 50));
}

QRect inkOfEllipse(bool compatible) {
    QImage picture = whiteSurface(150, 100);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Qt4CompatiblePainting, compatible);
    drawEllipse(painter);
    painter.end();
    return inkOf(picture);
}

TEST(SurfacePainter, PaintsOnThePicture) {
    QImage picture = whiteSurface(20, 10);
    SurfacePainter painter(picture);
    ASSERT_TRUE(painter.isActive());
    painter.fillRect(3, 4, 5, 2, Qt::black);
    painter.end();
    EXPECT_EQ(inkOf(picture), QRect(3, 4, 5, 2));
}

TEST(SurfacePainter, AddsOneHintToThoseOfAPlainPainter) {
    QImage picture = whiteSurface(20, 10);
    const QPainter::RenderHints plain = QPainter(&picture).renderHints();
    SurfacePainter painter(picture);
    EXPECT_EQ(painter.renderHints(), plain | QPainter::Qt4CompatiblePainting);
}

TEST(SurfacePainter, PlacesAliasedLinesOfTwoDotsAsTheHintDemands) {
    QImage picture = whiteSurface(150, 100);
    SurfacePainter painter(picture);
    drawEllipse(painter);
    painter.end();
    EXPECT_EQ(inkOf(picture), inkOfEllipse(true));
    EXPECT_NE(inkOf(picture), inkOfEllipse(false));
}

TEST(SurfacePainter, StaysInactiveAndSilentWithoutAPicture) {
    const QtMessages messages;
    QImage nothing;
    const SurfacePainter painter(nothing);
    EXPECT_FALSE(painter.isActive());
    EXPECT_EQ(messages.heard(), "");
}

using Parts = std::vector<QRect>;

Parts wholeOf(const QSize& surface) {
    return {QRect(QPoint(), surface)};
}

TEST(PaintedParts, AreTheWholeSurfaceForAnItemWithinTheReachOfAPainter) {
    const QSize tall(500, 40000);
    EXPECT_EQ(velnor::paintedParts(tall, QRectF(10, 20, 30, 32727), 20), wholeOf(tall));
    const QSize small(500, 400);
    EXPECT_EQ(velnor::paintedParts(small, QRectF(0, 0, 9e9, 9e9), 1), wholeOf(small));
}

TEST(PaintedParts, AreOneThatBeginsCloselyAboveAnItemThatLiesFarther) {
    EXPECT_EQ(velnor::paintedParts({500, 40000}, QRectF(10, 32000, 30, 760), 20),
              (Parts{QRect(0, 31000, 500, 1780)}));
    EXPECT_EQ(velnor::paintedParts({40000, 500}, QRectF(39995, 10, -90, 30), 1),
              (Parts{QRect(39000, 0, 996, 500)}));
}

TEST(PaintedParts, AreSeveralForAnItemThatIsTooLong) {
    EXPECT_EQ(velnor::paintedParts({500, 40000}, QRectF(10, 100, 30, 90000), 20),
              (Parts{QRect(0, 0, 500, 32767), QRect(0, 32767, 500, 7233)}));
}

TEST(PaintedParts, AreNoneForAnItemBehindTheSurface) {
    EXPECT_EQ(velnor::paintedParts({500, 40000}, QRectF(10, 50000, 30, 90), 20), Parts());
}

} // namespace
