#include "render/png_encoding.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/rows.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <random>

namespace {

// What Qt's writer makes of the picture.
QByteArray writtenByQt(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, "png").write(picture);
    return bytes;
}

void expectWrittenAsByQt(const QImage& picture) {
    const QByteArray expected = writtenByQt(picture);
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_TRUE(velnor::encodePng(picture) == expected)
        << picture.width() << " x " << picture.height();
}

// Dots whose channels are drawn from [0, values), as far apart as they may be.
QImage noise(int width, int height, unsigned values, unsigned seed) {
    std::mt19937 random(seed);
    QImage picture(width, height, QImage::Format_ARGB32);
    const unsigned step = 255 / (values - 1);
    const auto channel = [&] { return static_cast<int>(random() % values * step); };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, qRgba(channel(), channel(), channel(), channel()));
        }
    }
    return picture;
}

// Slopes that each of the filters is best for somewhere.
QImage slopes(int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int kind = y / 16 % 4;
            const int grey = kind == 0 ? x * 3 : kind == 1 ? y * 5 : kind == 2 ? x + y : x * y / 7;
            picture.setPixel(x, y, qRgba(grey & 255, (grey * 2) & 255, (255 - grey) & 255, 255));
        }
    }
    return picture;
}

QImage ticket(int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawEllipse(10, 10, width / 2, height / 2);
    painter.fillRect(width / 2, 5, 7, height - 20, Qt::black);
    painter.end();
    picture.reinterpretAsFormat(QImage::Format_ARGB32);
    picture.setDotsPerMeterX(7992);
    picture.setDotsPerMeterY(7992);
    return picture;
}

TEST(PngEncoding, IsQtsOfATicket) {
    expectWrittenAsByQt(ticket(576, 900));
}

TEST(PngEncoding, IsQtsForEachSmallSize) {
    for (int width = 1; width <= 12; ++width) {
        for (int height = 1; height <= 12; ++height) {
            expectWrittenAsByQt(noise(width, height, 256, 1));
            expectWrittenAsByQt(noise(width, height, 2, 2));
            expectWrittenAsByQt(slopes(width, height));
        }
    }
}

TEST(PngEncoding, IsQtsForEachNumberOfValues) {
    for (unsigned values = 2; values <= 256; values += values / 2) {
        expectWrittenAsByQt(noise(203, 97, values, values));
    }
}

// The widths around those at which the sums are cut into stretches.
TEST(PngEncoding, IsQtsOfSlopes) {
    for (const int width : {31, 32, 33, 128, 129, 130, 256, 257, 1000}) {
        expectWrittenAsByQt(slopes(width, 64));
    }
}

// Each value of a byte beside each other one.
TEST(PngEncoding, IsQtsOfAllPairsOfValues) {
    QImage picture(256, 256, QImage::Format_ARGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            picture.setPixel(x, y, qRgba(x, y, x ^ y, (x * y) & 255));
        }
    }
    expectWrittenAsByQt(picture);
}

TEST(PngEncoding, IsQtsOfPlainPictures) {
    for (const QRgb colour : {qRgba(255, 255, 255, 255), qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 0),
                              qRgba(128, 127, 129, 255)}) {
        QImage picture(300, 40, QImage::Format_ARGB32);
        picture.fill(colour);
        expectWrittenAsByQt(picture);
    }
}

TEST(PngEncoding, IsQtsOfLongRowsAndOfManyRows) {
    expectWrittenAsByQt(noise(40000, 3, 256, 5));
    expectWrittenAsByQt(noise(2, 30000, 4, 6));
}

struct ResolutionRow : Row {
    int x;
    int y;
};

class PngResolution : public testing::TestWithParam<ResolutionRow> {};

TEST_P(PngResolution, IsQts) {
    QImage picture = slopes(40, 30);
    picture.setDotsPerMeterX(GetParam().x);
    picture.setDotsPerMeterY(GetParam().y);
    expectWrittenAsByQt(picture);
}

INSTANTIATE_TEST_SUITE_P(PngEncoding, PngResolution,
                         testing::Values(ResolutionRow{{"Of203Dpi"}, 7992, 7992},
                                         ResolutionRow{{"OfNone"}, 0, 0},
                                         ResolutionRow{{"AcrossAlone"}, 7992, 0},
                                         ResolutionRow{{"DownAlone"}, 0, 7992},
                                         ResolutionRow{{"Highest"}, 2147483647, 2147483647}),
                         RuleAsName());

TEST(PngEncoding, OfRowsThatLieApartIsThatOfThePicture) {
    QImage sheet = slopes(100, 50);
    const QImage part(sheet.scanLine(7) + 5 * 4, 60, 30, sheet.bytesPerLine(),
                      QImage::Format_ARGB32);
    expectWrittenAsByQt(part);
}

TEST(PngEncoding, OfMoreColumnsThanLibpngTakesIsEmptyWithoutAComplaint) {
    const QtMessages messages;
    QImage picture(1000001, 1, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(velnor::encodePng(picture).isEmpty());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
