#include "render/velnorimage.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/printing.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/white_surface.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

namespace {

constexpr int Written = -1;

// Names are relative here, so that the last point is the one of the row.
class InsideFolder {
public:
    explicit InsideFolder(const ScratchFolder& folder) : before(QDir::currentPath()) {
        QDir::setCurrent(folder.path(QStringLiteral(".")));
    }
    ~InsideFolder() { QDir::setCurrent(before); }
    InsideFolder(const InsideFolder&) = delete;
    InsideFolder& operator=(const InsideFolder&) = delete;

private:
    QString before;
};

struct NameRow : Row {
    const char* given;
    const char* written;
};

class BmpName : public testing::TestWithParam<NameRow> {};

TEST_P(BmpName, EndsInBmp) {
    const ScratchFolder folder;
    const InsideFolder inside(folder);
    ASSERT_TRUE(QDir().mkpath(QStringLiteral("out/a.b")));
    const VelnorImage surface(4, 4);
    EXPECT_EQ(surface.SaveImageBmp(GetParam().given, 203, 0, 0, 0, 0), Written);
    EXPECT_EQ(QImage(QString::fromLatin1(GetParam().written)).size(), QSize(4, 4));
}

INSTANTIATE_TEST_SUITE_P(
    OutputBmp, BmpName,
    testing::Values(NameRow{{"SuffixIsReplaced"}, "ticket.png", "ticket.bmp"},
                    NameRow{{"SuffixIsAdded"}, "ticket", "ticket.bmp"},
                    NameRow{{"SuffixIsKept"}, "ticket.bmp", "ticket.bmp"},
                    NameRow{{"OnlyTheLastSuffixIsReplaced"}, "a.b.c", "a.b.bmp"},
                    NameRow{{"PointAtTheEndIsReplaced"}, "ticket.", "ticket.bmp"},
                    NameRow{{"PointOfAFolderCounts"}, "out/a.b/ticket", "out/a.bmp"},
                    NameRow{
                        {"SuffixInAFolderWithAPoint"}, "out/a.b/ticket.png", "out/a.b/ticket.bmp"}),
    RuleAsName());

class OutputBmp : public testing::Test {
protected:
    int save(const VelnorImage& surface, int dpi, int left, int top, int right, int bottom) const {
        return surface.SaveImageBmp(folder.utf8Path(QStringLiteral("t.png")), dpi, left, top, right,
                                    bottom);
    }
    QImage saved() const { return QImage(path()); }
    QString path() const { return folder.path(QStringLiteral("t.bmp")); }

    ScratchFolder folder;
};

TEST_F(OutputBmp, HasOneBitADotAndTwoColours) {
    constexpr int HeaderBytes = 54;
    constexpr int BitsPerDotAt = 28;
    VelnorImage surface(40, 20);
    surface.DrawOverlayRectangle(2, 2, 20, 10, 0, 3, 0, 0, false);
    ASSERT_EQ(save(surface, 203, 0, 0, 0, 0), Written);
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(HeaderBytes);
    EXPECT_EQ(qFromLittleEndian<quint16>(header.constData() + BitsPerDotAt), 1);
    EXPECT_EQ(saved().format(), QImage::Format_Mono);
    EXPECT_EQ(saved().colorCount(), 2);
    EXPECT_TRUE(samePicture(saved(), *surface.picture()));
}

TEST_F(OutputBmp, IsFramedAndCarriesTheResolution) {
    VelnorImage surface(576, 200);
    surface.DrawOverlayRectangle(0, 0, 575, 199, 0, 1, 0, 0, false);
    save(surface, 203, 10, 20, 30, 40);
    EXPECT_EQ(saved().size(), QSize(616, 260));
    EXPECT_EQ(inkOf(saved()), QRect(10, 20, 576, 200));
    EXPECT_EQ(saved().dotsPerMeterX(), 7992);
    EXPECT_EQ(saved().dotsPerMeterY(), 7992);
}

TEST_F(OutputBmp, IsCroppedAsOtherFormatsAre) {
    VelnorImage surface(40, 300);
    surface.setCurrentY(100);
    surface.SetCropAtCurrentY(true);
    save(surface, 203, 0, 0, 0, 0);
    EXPECT_EQ(saved().size(), QSize(40, 116));
}

TEST_F(OutputBmp, KeepsTheResolutionOfANewPictureAtADpiOfMinusOne) {
    save(VelnorImage(4, 4), -1, 0, 0, 0, 0);
    EXPECT_EQ(saved().dotsPerMeterX(), QImage(1, 1, QImage::Format_Mono).dotsPerMeterX());
}

TEST_F(OutputBmp, DithersShadesInAnOrderedPattern) {
    QImage grey(32, 32, QImage::Format_RGB32);
    grey.fill(qRgb(128, 128, 128));
    const QString file = writePicture(folder, QStringLiteral("grey.png"), grey);
    VelnorImage surface(40, 40);
    surface.DrawOverlayImage(file, 4, 4, 100, 100, -1, -1, 0, 0);
    ASSERT_TRUE(hasGrey(*surface.picture()));
    save(surface, 203, 1, 2, 3, 4);
    const QImage framed = VelnorImage::ApplyMarginsToImage(*surface.picture(), 1, 2, 3, 4);
    EXPECT_TRUE(
        samePicture(saved(), framed.convertToFormat(QImage::Format_Mono, Qt::OrderedDither)));
    EXPECT_FALSE(hasGrey(saved()));
    EXPECT_NEAR(inkDots(saved()), 32 * 32 / 2, 32);
}

} // namespace
