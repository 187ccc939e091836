#include "render/picture_file.h"
#include "render/velnorimage.h"
#include "support/peak_memory.h"
#include "support/picture_files.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/same_picture.h"

#include <QDataStream>
#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

constexpr long PermittedMegabytes = 300;

class PictureFile : public testing::Test {
protected:
    // No picture is loaded from the path, and drawing it draws nothing.
    static void expectUnreadable(const QString& path) {
        const PeakMemory memory;
        EXPECT_TRUE(velnor::loadPicture(path).isNull());
        VelnorImage surface(50, 50);
        EXPECT_EQ(surface.DrawOverlayImage(path, 10, 20, 100, 100, -1, -1, 0, 0), 0);
        EXPECT_TRUE(isAllWhite(*surface.picture()));
        EXPECT_EQ(surface.lastBoundingRect(), QRectF(10, 20, 0, 0));
        EXPECT_LT(memory.risenMegabytes(), PermittedMegabytes);
    }
    // The same, without a word of Qt's.
    static void expectSilentlyUnreadable(const QString& path) {
        const QtMessages messages;
        expectUnreadable(path);
        EXPECT_EQ(messages.heard(), "");
    }

    ScratchFolder folder;
};

TEST_F(PictureFile, IsLoadedWithItsFormatAndSize) {
    const QImage picture = colourfulPicture(20, 10);
    const QString path = writePicture(folder, QStringLiteral("p.png"), picture);
    EXPECT_TRUE(samePicture(velnor::loadPicture(path), picture));
    const QImage oneBit = picture.convertToFormat(QImage::Format_Mono);
    EXPECT_EQ(velnor::loadPicture(writePicture(folder, QStringLiteral("m.png"), oneBit)).format(),
              QImage::Format_Mono);
}

TEST_F(PictureFile, IsLoadedThroughALink) {
    const QImage picture = colourfulPicture(20, 10);
    const QString path = writePicture(folder, QStringLiteral("p.png"), picture);
    const QString link = folder.path(QStringLiteral("link.png"));
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(samePicture(velnor::loadPicture(link), picture));
}

TEST_F(PictureFile, OfGarbageIsUnreadable) {
    expectSilentlyUnreadable(folder.write(QStringLiteral("garbage.png"), "this is no picture"));
}

TEST_F(PictureFile, ThatIsEmptyIsUnreadable) {
    expectSilentlyUnreadable(folder.write(QStringLiteral("empty.png"), QByteArray()));
}

TEST_F(PictureFile, ThatIsADirectoryIsUnreadable) {
    const QString path = folder.path(QStringLiteral("directory.png"));
    ASSERT_TRUE(QDir().mkpath(path));
    expectSilentlyUnreadable(path);
}

TEST_F(PictureFile, ThatIsAPipeIsUnreadableAndNotWaitedFor) {
    const QString path = folder.path(QStringLiteral("pipe.png"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
    expectSilentlyUnreadable(path);
}

TEST_F(PictureFile, ThatIsALinkToAPipeIsUnreadableAndNotWaitedFor) {
    const QString pipe = folder.path(QStringLiteral("pipe"));
    const QString link = folder.path(QStringLiteral("link.png"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    ASSERT_TRUE(QFile::link(pipe, link));
    expectSilentlyUnreadable(link);
}

TEST_F(PictureFile, ThatIsAnEndlessDeviceIsUnreadable) {
    expectSilentlyUnreadable(QStringLiteral("/dev/zero"));
}

TEST_F(PictureFile, ThatDoesNotExistIsNull) {
    EXPECT_TRUE(velnor::loadPicture(folder.path(QStringLiteral("none.png"))).isNull());
    EXPECT_TRUE(velnor::loadPicture(QString()).isNull());
}

TEST_F(PictureFile, ThatEndsAnywhereDoesNoHarm) {
    for (const char* format : {"png", "jpeg", "bmp", "ppm", "pbm", "xbm", "xpm", "ico"}) {
        const QByteArray bytes = velnor::encodePicture(colourfulPicture(20, 10), format);
        for (int length = 0; length < bytes.size(); length += length < 200 ? 1 : 37) {
            const QString cut = folder.write(QStringLiteral("cut.png"), bytes.left(length));
            VelnorImage surface(50, 50);
            EXPECT_EQ(surface.DrawOverlayImage(cut, 0, 0, 100, 100, 40, 40, 33, 2), 0)
                << format << " of " << length << " bytes";
        }
    }
}

// What Qt's reader leaves out would otherwise be memory that the host has freed.
TEST_F(PictureFile, OfTheBmpFormatThatEndsTooEarlyIsWhiteBehindItsEnd) {
    const QImage picture = colourfulPicture(90, 90).convertToFormat(QImage::Format_RGB32);
    const QByteArray bytes = velnor::encodePicture(picture, "bmp");
    const QImage cut =
        velnor::loadPicture(folder.write(QStringLiteral("cut.bmp"), bytes.left(bytes.size() / 2)));
    ASSERT_EQ(cut.size(), picture.size());
    // From the bottom up, as the file holds it.
    EXPECT_TRUE(isAllWhite(cut.copy(0, 0, 90, 40)));
    EXPECT_TRUE(samePicture(cut.copy(0, 50, 90, 40), picture.copy(0, 50, 90, 40)));
}

// Qt would look the others up in memory behind the table.
TEST_F(PictureFile, HasWhiteForColoursBeyondItsTable) {
    constexpr int ColoursUsed = 46; // where a BMP file tells
    QImage picture(4, 4, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    picture.fill(1);
    for (int y = 0; y < picture.height(); ++y) {
        picture.scanLine(y)[2] = 255;
    }
    QByteArray bytes = velnor::encodePicture(picture, "bmp");
    bytes.replace(ColoursUsed, 4, QByteArray("\2\0\0\0", 4));
    const QString file = folder.write(QStringLiteral("p.bmp"), bytes);
    EXPECT_EQ(velnor::loadPicture(file).colorCount(), 256);
    VelnorImage surface(4, 4);
    surface.DrawOverlayImage(file, 0, 0, 100, 100, -1, -1, 0, 0);
    EXPECT_EQ(surface.picture()->pixel(1, 1), qRgb(0, 0, 255));
    EXPECT_EQ(surface.picture()->pixel(2, 1), qRgb(255, 255, 255));
}

TEST_F(PictureFile, MayBeAnIconOrACursor) {
    const QImage picture = colourfulPicture(20, 10);
    QByteArray bytes = velnor::encodePicture(picture, "ico");
    EXPECT_TRUE(
        samePicture(velnor::loadPicture(folder.write(QStringLiteral("p.ico"), bytes)), picture));
    bytes[2] = 2; // the kind
    EXPECT_TRUE(
        samePicture(velnor::loadPicture(folder.write(QStringLiteral("p.cur"), bytes)), picture));
}

TEST_F(PictureFile, MayBeAnIconOfAPng) {
    const QImage picture = colourfulPicture(20, 10);
    const QByteArray bytes = iconOf(velnor::encodePicture(picture, "png"));
    EXPECT_TRUE(
        samePicture(velnor::loadPicture(folder.write(QStringLiteral("p.ico"), bytes)), picture));
}

// A BMP file of 24 bits whose rows come from the top.
QByteArray topDownBitmap(qint32 width, qint32 height, const QByteArray& dots) {
    constexpr qint32 HeaderSize = 54;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("BM", 2);
    stream << HeaderSize + dots.size() << qint32(0) << HeaderSize;
    stream << qint32(40) << width << -height << qint16(1) << qint16(24);
    for (int unused = 0; unused < 6; ++unused) {
        stream << qint32(0);
    }
    return bytes + dots;
}

TEST_F(PictureFile, OfTheBmpFormatMayBeginWithItsTopRow) {
    const QByteArray red("\0\0\xFF\0", 4); // one dot and the rest of its row
    const QByteArray bytes = topDownBitmap(1, 2000, red.repeated(1000));
    const QImage picture = velnor::loadPicture(folder.write(QStringLiteral("p.bmp"), bytes));
    ASSERT_EQ(picture.size(), QSize(1, 2000));
    EXPECT_EQ(picture.pixel(0, 999), qRgb(255, 0, 0));
    EXPECT_EQ(picture.pixel(0, 1000), qRgb(255, 255, 255));
}

TEST_F(PictureFile, OfTheBmpFormatThatBeginsWithItsTopRowHasTheSameLimit) {
    expectSilentlyUnreadable(
        folder.write(QStringLiteral("p.bmp"), topDownBitmap(8000, 8001, QByteArray(1000, 'x'))));
}

struct AnnouncedRow : Row {
    quint32 width;
    quint32 height;
};

class AnnouncedSize : public PictureFile, public testing::WithParamInterface<AnnouncedRow> {};

TEST_P(AnnouncedSize, BeyondTheLimitIsNotLoaded) {
    expectSilentlyUnreadable(folder.write(QStringLiteral("huge.png"),
                                          pngThatAnnounces(GetParam().width, GetParam().height)));
}

INSTANTIATE_TEST_SUITE_P(PictureFile, AnnouncedSize,
                         testing::Values(AnnouncedRow{{"FourHundredMegapixels"}, 20000, 20000},
                                         AnnouncedRow{{"OneRowBeyond64Megapixels"}, 8000, 8001},
                                         AnnouncedRow{{"VeryLongRows"}, 1000000, 65},
                                         AnnouncedRow{{"VeryTallColumns"}, 65, 1000000},
                                         AnnouncedRow{{"ProductThatWrapsTo32Bits"}, 65536, 65537}),
                         RuleAsName());

TEST_F(PictureFile, ThatAnnouncesWhatNoReaderTakesIsUnreadable) {
    const QString path = folder.path(QStringLiteral("huge.png"));
    for (const quint32 length : {64000001U, 0x7fffffffU, 0xffffffffU}) {
        folder.write(QStringLiteral("huge.png"), pngThatAnnounces(length, 1));
        expectUnreadable(path);
        folder.write(QStringLiteral("huge.png"), pngThatAnnounces(length, length));
        expectUnreadable(path);
    }
}

TEST_F(PictureFile, OfExactly64MegapixelsIsLoadedAndOneRowMoreIsNot) {
    for (const int height : {8000, 8001}) {
        QImage picture(8000, height, QImage::Format_Mono);
        picture.fill(1);
        const QString path = writePicture(folder, QStringLiteral("limit.png"), picture);
        EXPECT_EQ(velnor::loadPicture(path).isNull(), height > 8000);
    }
}

struct HeaderRow : Row {
    const char* name;
    QByteArray content;
};

class AnnouncingHeader : public PictureFile, public testing::WithParamInterface<HeaderRow> {};

TEST_P(AnnouncingHeader, OfAnotherFormatIsNotLoadedEither) {
    expectSilentlyUnreadable(
        folder.write(QString::fromLatin1(GetParam().name), GetParam().content));
}

// 20,000 x 20,000 dots of 32 bits.
QByteArray bitmapHeader() {
    return QByteArrayLiteral("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x20\x4e\0\0\x20\x4e\0\0"
                             "\1\0\x20\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0");
}

// A bitmap whose size the directory leaves to it.
QByteArray hugeIcon() {
    constexpr int IconSides = 6;
    constexpr int FileHeaderSize = 14;
    QByteArray icon = iconOf(bitmapHeader().mid(FileHeaderSize));
    return icon.replace(IconSides, 2, QByteArray("\0\0", 2));
}

// A screen of 65,535 x 65,535 dots with one picture as large.
QByteArray gifHeader() {
    return QByteArrayLiteral(
        "GIF89a\xff\xff\xff\xff\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\xff\xff\xff\xff\0"
        "\2\2\x4c\1\0;");
}

INSTANTIATE_TEST_SUITE_P(
    PictureFile, AnnouncingHeader,
    testing::Values(HeaderRow{{"Bmp"}, "huge.bmp", bitmapHeader()},
                    HeaderRow{{"Gif"}, "huge.gif", gifHeader()},
                    HeaderRow{{"IconOfAPng"}, "huge.ico", iconOf(pngThatAnnounces(20000, 20000))},
                    HeaderRow{{"IconOfABitmap"}, "huge.ico", hugeIcon()},
                    HeaderRow{{"IconOfNothing"}, "huge.ico", iconOf(QByteArray(100, 'x'))},
                    HeaderRow{{"Ppm"}, "huge.ppm", "P6 20000 20000 255\n"},
                    HeaderRow{{"Pbm"}, "huge.pbm", "P4 20000 20000\n"},
                    HeaderRow{{"Xbm"},
                              "huge.xbm",
                              "#define w_width 20000\n#define w_height 20000\n"
                              "static char w_bits[] = {0x00};\n"},
                    HeaderRow{{"Xpm"},
                              "huge.xpm",
                              "/* XPM */\nstatic char* x[] = {\n\"20000 20000 2 1\",\n"
                              "\"a c #000000\",\n\"b c #ffffff\",\n\"abab\"};\n"}),
    RuleAsName());

} // namespace
