#include "library_limits.h"
#include "render/picture_file.h"
#include "render/picture_scan.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/rows.h"

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

struct TextRow : Row {
    const char* type;
    QByteArray content;
    bool isCounted;
};

class PngText : public testing::TestWithParam<TextRow> {};

TEST_P(PngText, IsTakenSoOftenAndNoMoreWhereItIsCompressed) {
    const QByteArray text = chunk(GetParam().type, GetParam().content);
    const int most = velnor::MaximumPictureTexts;
    EXPECT_TRUE(isSafe(png(text.repeated(most)), "png"));
    EXPECT_EQ(isSafe(png(text.repeated(most + 1)), "png"), !GetParam().isCounted);
}

QByteArray keyword(int length) {
    return QByteArray(length, 'k');
}

INSTANTIATE_TEST_SUITE_P(
    PictureScan, PngText,
    testing::Values(
        TextRow{{"Latin1"}, "tEXt", "Software", false},
        TextRow{{"CompressedLatin1"}, "zTXt", "Comment", true},
        TextRow{{"Unicode"}, "iTXt", QByteArrayLiteral("Comment\0\0\0\0\0text"), false},
        TextRow{{"CompressedUnicode"}, "iTXt", QByteArrayLiteral("Comment\0\1\0\0\0x"), true},
        TextRow{{"UnicodeOfTheLongestKeyword"},
                "iTXt",
                keyword(79) + QByteArrayLiteral("\0\0\0\0\0text"),
                false},
        TextRow{{"CompressedUnicodeOfTheLongestKeyword"},
                "iTXt",
                keyword(79) + QByteArrayLiteral("\0\1\0\0\0x"),
                true},
        TextRow{{"ColourProfile"}, "iCCP", "profile", true},
        // libpng reads none of these.
        TextRow{{"UnicodeOfATooLongKeyword"},
                "iTXt",
                keyword(200) + QByteArrayLiteral("\0\1\0\0\0x"),
                false},
        TextRow{{"UnicodeThatEndsBehindItsKeyword"}, "iTXt", QByteArrayLiteral("key\0"), false},
        TextRow{{"UnicodeWithoutContent"}, "iTXt", "", false}),
    RuleAsName());

TEST(PictureScan, CountsColourProfilesApartFromCompressedTexts) {
    const QByteArray both = chunk("zTXt", "Comment") + chunk("iCCP", "profile");
    EXPECT_TRUE(isSafe(png(both.repeated(velnor::MaximumPictureTexts)), "png"));
}

TEST(PictureScan, CountsCompressedTextsOfBothKindsTogether) {
    const QByteArray texts =
        chunk("zTXt", "Comment") + chunk("iTXt", QByteArrayLiteral("Comment\0\1\0\0\0x"));
    EXPECT_TRUE(isSafe(png(texts.repeated(velnor::MaximumPictureTexts / 2)), "png"));
    EXPECT_FALSE(isSafe(png(texts.repeated(velnor::MaximumPictureTexts / 2 + 1)), "png"));
}

TEST(PictureScan, CountsCompressedTextsBehindThePicture) {
    const QByteArray texts = chunk("zTXt", "Comment").repeated(velnor::MaximumPictureTexts + 1);
    EXPECT_FALSE(isSafe(encoded("png") + texts, "png"));
}

TEST(PictureScan, TakesSoManyChunksOfAPngAndNoMore) {
    EXPECT_TRUE(isSafe(png(chunk("teXt").repeated(velnor::MaximumPictureChunks - 10)), "png"));
    EXPECT_FALSE(isSafe(png(chunk("teXt").repeated(velnor::MaximumPictureChunks)), "png"));
}

TEST(PictureScan, LeavesABrokenPngToItsDecoder) {
    EXPECT_TRUE(isSafe(QByteArray(), "png"));
    EXPECT_TRUE(isSafe(encoded("png").left(40), "png"));
}

// libpng takes and clears the memory for a text before it reads it.
TEST(PictureScan, RefusesAPngWithAChunkThatIsLongerThanTheFile) {
    for (const char* length : {"\x7F\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF"}) {
        EXPECT_FALSE(isSafe(png(QByteArray(length, 4) + "iTXt"), "png"));
        EXPECT_FALSE(isSafe(encoded("png") + QByteArray(length, 4) + "iTXt", "png"));
    }
    const QByteArray text = chunk("tEXt", "Software");
    const int checksumSize = 4;
    EXPECT_TRUE(isSafe(encoded("png") + text.chopped(checksumSize), "png"));
    EXPECT_FALSE(isSafe(encoded("png") + text.chopped(checksumSize + 1), "png"));
}

QByteArray jpeg(const QByteArray& segments) {
    return "\xFF\xD8" + segments;
}

const QByteArray EndOfImage("\xFF\xD9", 2);
const QByteArray Scan("\xFF\xDA\0\2", 4); // without a component
const QByteArray TooManyScans = Scan.repeated(velnor::MaximumPictureScans + 1);

TEST(PictureScan, TakesSoManyScansOfAJpegAndNoMore) {
    EXPECT_TRUE(isSafe(jpeg(Scan.repeated(velnor::MaximumPictureScans)), "jpeg"));
    EXPECT_FALSE(isSafe(jpeg(TooManyScans), "jpeg"));
    EXPECT_FALSE(isSafe(jpeg(TooManyScans), "jpg"));
}

struct JpegRow : Row {
    QByteArray scans;
    bool isSafe;
};

class JpegScans : public testing::TestWithParam<JpegRow> {};

TEST_P(JpegScans, AreCountedWhereLibjpegReadsThem) {
    EXPECT_EQ(isSafe(jpeg(GetParam().scans), "jpeg"), GetParam().isSafe);
}

QByteArray segment(const QByteArray& marker, const QByteArray& content) {
    QByteArray length(2, '\0');
    qToBigEndian<quint16>(static_cast<quint16>(content.size() + 2), length.data());
    return marker + length + content;
}

// Too many scans, each behind the same bytes.
QByteArray scansBehind(const QByteArray& bytes) {
    return (bytes + Scan).repeated(velnor::MaximumPictureScans + 1) + EndOfImage;
}

INSTANTIATE_TEST_SUITE_P(
    PictureScan, JpegScans,
    testing::Values(
        JpegRow{{"BehindTheEndAreNone"}, EndOfImage + TooManyScans, true},
        JpegRow{{"InAThumbnailAreNone"}, segment("\xFF\xE1", TooManyScans + EndOfImage), true},
        JpegRow{{"BehindAThumbnailCount"},
                segment("\xFF\xE1", EndOfImage) + TooManyScans + EndOfImage,
                false},
        JpegRow{{"InACommentAreNone"}, segment("\xFF\xFE", TooManyScans), true},
        JpegRow{{"BehindAnEmptySegmentCount"}, scansBehind(segment("\xFF\xE1", "")), false},
        JpegRow{{"BehindASegmentOfOneByteLessThanItsLengthCount"},
                scansBehind(QByteArrayLiteral("\xFF\xE1\0\1")),
                false},
        JpegRow{{"BehindASegmentOfNoLengthCount"},
                scansBehind(QByteArrayLiteral("\xFF\xE1\0\0")),
                false},
        JpegRow{{"BehindASegmentThatEndsLikeAMarkerCount"},
                segment("\xFF\xE1", "\xFF") + "\xD9" + TooManyScans,
                false},
        JpegRow{{"BehindDataCount"}, scansBehind("data"), false},
        JpegRow{{"BehindAStuffedByteCount"}, scansBehind(QByteArrayLiteral("\xFF\0")), false},
        JpegRow{{"OfAStuffedByteAreNone"}, QByteArray("\xFF\0\xDA\0\2", 5).repeated(500), true},
        JpegRow{{"BehindFillBytesCount"}, scansBehind("\xFF\xFF\xFF"), false},
        JpegRow{{"BehindARestartCount"}, scansBehind("\xFF\xD0\xFF\xD7"), false},
        JpegRow{{"BehindAMarkerWithoutASegmentCount"}, scansBehind("\xFF\x01\xFF\xBF"), false},
        JpegRow{{"BehindAnotherStartCount"}, scansBehind("\xFF\xD8"), false},
        JpegRow{{"WithoutAnEndCount"}, TooManyScans, false},
        JpegRow{
            {"BehindTheFileAreNone"}, QByteArrayLiteral("\xFF\xE1\xFF\xFF") + TooManyScans, true}),
    RuleAsName());

TEST(PictureScan, FindsScansAcrossTheBlocksThatItReads) {
    constexpr int BlockSize = 65536;
    for (int shift = 0; shift < Scan.size(); ++shift) {
        const QByteArray block = Scan + QByteArray(BlockSize - Scan.size(), ' ');
        const QByteArray scans = QByteArray(shift, ' ') + block.repeated(101);
        EXPECT_FALSE(isSafe(jpeg(scans), "jpeg")) << shift;
    }
}

// Cameras write videos and depths behind the picture.
TEST(PictureScan, TakesAJpegWithMegabytesBehindItsEnd) {
    EXPECT_TRUE(isSafe(encoded("jpeg") + Scan.repeated(9 * 1024 * 1024 / Scan.size()), "jpeg"));
}

// libjpeg walks over all that came before for each one more.
TEST(PictureScan, TakesSoManySegmentsOfAJpegAndNoMore) {
    const QByteArray comment = segment("\xFF\xFE", "");
    EXPECT_TRUE(isSafe(jpeg(comment.repeated(velnor::MaximumPictureSegments)), "jpeg"));
    EXPECT_FALSE(isSafe(jpeg(comment.repeated(velnor::MaximumPictureSegments + 1)), "jpeg"));
}

TEST(PictureScan, IsAskedBeforeAPictureIsLoaded) {
    const ScratchFolder folder;
    const QByteArray texts = chunk("zTXt", "Comment").repeated(velnor::MaximumPictureTexts + 1);
    const QByteArray picture = encoded("png") + texts;
    for (const QByteArray& bytes : {picture, iconOf(picture)}) {
        const QString file = folder.write(QStringLiteral("picture.png"), bytes);
        EXPECT_TRUE(velnor::loadPicture(file).isNull());
    }
}
