#include "render/picture_file.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>

namespace {

QImage somePicture() {
    QImage picture(20, 30, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    return picture;
}

TEST(PictureEncoding, GivesWhatQtWouldSave) {
    const ScratchFolder folder;
    const QString saved = folder.path(QStringLiteral("saved.png"));
    ASSERT_TRUE(somePicture().save(saved));
    QFile file(saved);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(velnor::encodePicture(somePicture(), "png"), file.readAll());
}

TEST(PictureEncoding, GivesNothingForANullPictureAndForUnknownFormats) {
    EXPECT_TRUE(velnor::encodePicture(QImage(), "png").isEmpty());
    EXPECT_TRUE(velnor::encodePicture(somePicture(), "nonsense").isEmpty());
    EXPECT_TRUE(velnor::encodePicture(somePicture(), "").isEmpty());
}

// More than Qt converts without threads.
QImage largePicture() {
    QImage picture(600, 700, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            row[x] = qRgb(x % 256, y % 256, (x * y) % 256);
        }
    }
    picture.setDotsPerMeterX(7992);
    picture.setDotsPerMeterY(7992);
    return picture;
}

int threadCount() {
    return QDir(QStringLiteral("/proc/self/task"))
        .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
        .size();
}

class WrittenFormat : public testing::TestWithParam<const char*> {};

TEST_P(WrittenFormat, IsWrittenWithoutThreadsAsQtWouldWithThem) {
    const QImage picture = largePicture();
    const int before = threadCount();
    const QByteArray bytes = velnor::encodePicture(picture, GetParam());
    EXPECT_EQ(threadCount(), before);
    QByteArray expected;
    QBuffer buffer(&expected);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QImageWriter(&buffer, GetParam()).write(picture));
    EXPECT_EQ(bytes, expected);
}

INSTANTIATE_TEST_SUITE_P(PictureEncoding, WrittenFormat,
                         testing::Values("bmp", "BMP", "jpeg", "jpg", "pbm", "pgm", "png", "ppm",
                                         "xbm", "xpm"));

} // namespace
