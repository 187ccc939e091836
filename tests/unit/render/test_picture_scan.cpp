#include "library_limits.h"
#include "render/picture_file.h"
#include "render/picture_scan.h"
#include "support/picture_files.h"
#include "support/pictures.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QtEndian>

namespace {

bool isSafe(const QByteArray& bytes, const QByteArray& format) {
    QBuffer file;
    file.setData(bytes);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const bool safe = velnor::isSafeToDecode(file, format);
    EXPECT_EQ(file.pos(), 0);
    return safe;
}

QByteArray encoded(const QByteArray& format) {
    return velnor::encodePicture(colourfulPicture(20, 10), format);
}

// Without a checksum that is right: nothing reads it.
QByteArray chunk(const QByteArray& type, const QByteArray& content = {}) {
    QByteArray length(4, '\0');
    qToBigEndian<quint32>(static_cast<quint32>(content.size()), length.data());
    return length + type + content + QByteArray(4, '\0');
}

QByteArray png(const QByteArray& chunks) {
    constexpr int SignatureAndHeader = 33;
    const QByteArray whole = encoded("png");
    return whole.left(SignatureAndHeader) + chunks + whole.mid(SignatureAndHeader);
}

} // namespace

TEST(PictureScan, TakesWhatProgramsWrite) {
    for (const char* format : {"png", "jpeg", "bmp", "ppm", "xpm"}) {
        EXPECT_TRUE(isSafe(encoded(format), format)) << format;
    }
}

TEST(PictureScan, TakesSoManyCompressedTextsOfAPngAndNoMore) {
    const QByteArray text = chunk("zTXt", "Comment");
    const QByteArray international = chunk("iTXt", "Comment");
    const int most = velnor::MaximumPictureTexts;
    EXPECT_TRUE(isSafe(png(text.repeated(most)), "png"));
    EXPECT_FALSE(isSafe(png(text.repeated(most + 1)), "png"));
    EXPECT_FALSE(isSafe(png(text + international.repeated(most)), "png"));
}

TEST(PictureScan, CountsCompressedTextsBehindThePicture) {
    const QByteArray texts = chunk("zTXt", "Comment").repeated(velnor::MaximumPictureTexts + 1);
    EXPECT_FALSE(isSafe(encoded("png") + texts, "png"));
}

TEST(PictureScan, TakesPlainTextsOfAPng) {
    EXPECT_TRUE(isSafe(png(chunk("tEXt", "Software").repeated(500)), "png"));
}

TEST(PictureScan, TakesSoManyChunksOfAPngAndNoMore) {
    EXPECT_TRUE(isSafe(png(chunk("teXt").repeated(velnor::MaximumPictureChunks - 10)), "png"));
    EXPECT_FALSE(isSafe(png(chunk("teXt").repeated(velnor::MaximumPictureChunks)), "png"));
}

TEST(PictureScan, LeavesABrokenPngToItsDecoder) {
    EXPECT_TRUE(isSafe(QByteArray(), "png"));
    EXPECT_TRUE(isSafe(encoded("png").left(40), "png"));
    EXPECT_TRUE(isSafe(png(QByteArray("\xFF\xFF\xFF\xFFzTXt", 8)), "png"));
}

TEST(PictureScan, TakesSoManyScansOfAJpegAndNoMore) {
    const QByteArray scan("\xFF\xDA", 2);
    const int most = velnor::MaximumPictureScans - encoded("jpeg").count(scan);
    EXPECT_TRUE(isSafe(encoded("jpeg") + scan.repeated(most), "jpeg"));
    EXPECT_FALSE(isSafe(encoded("jpeg") + scan.repeated(most + 1), "jpeg"));
}

TEST(PictureScan, FindsScansAcrossTheBlocksThatItReads) {
    constexpr int BlockSize = 65536;
    const QByteArray block = '\xDA' + QByteArray(BlockSize - 2, ' ') + '\xFF';
    EXPECT_FALSE(isSafe(block.repeated(velnor::MaximumPictureScans + 2), "jpeg"));
}

TEST(PictureScan, RefusesIcons) {
    EXPECT_FALSE(isSafe(encoded("ico"), "ico"));
    EXPECT_FALSE(isSafe(encoded("cur"), "cur"));
}

TEST(PictureScan, IsAskedBeforeAPictureIsLoaded) {
    const ScratchFolder folder;
    const QString icon = folder.write(QStringLiteral("icon.png"), encoded("ico"));
    EXPECT_TRUE(velnor::loadPicture(icon).isNull());
    const QByteArray texts = chunk("zTXt", "Comment").repeated(velnor::MaximumPictureTexts + 1);
    const QString picture = folder.write(QStringLiteral("picture.png"), encoded("png") + texts);
    EXPECT_TRUE(velnor::loadPicture(picture).isNull());
}
