#include "library_limits.h"
#include "render/item_pictures.h"
#include "support/picture_files.h"
#include "support/pictures.h"
#include "support/same_picture.h"
#include "support/scratch_folder.h"
#include "support/zint_pictures.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>

namespace {

class ItemPicturesTest : public testing::Test {
protected:
    QString write(const QString& name, const QImage& picture) const {
        return writePicture(folder, name, picture);
    }

    ScratchFolder folder;
    velnor::ItemPictures pictures;
};

VelnorDrawableBarcode barcodeOf(const QString& data) {
    VelnorDrawableBarcode item;
    item.barcodeType = BARCODE_CODE128;
    item.text = data;
    return item;
}

TEST_F(ItemPicturesTest, OfAFileAreReadOnce) {
    const QImage first = colourfulPicture(40, 30);
    const QString file = write(QStringLiteral("p.png"), first);
    EXPECT_TRUE(samePicture(pictures.ofFile(file).value(), first));
    write(QStringLiteral("p.png"), colourfulPicture(9, 9));
    EXPECT_TRUE(samePicture(pictures.ofFile(file).value(), first));
}

TEST_F(ItemPicturesTest, OfAFileThatDoesNotExistAreNone) {
    const QString file = folder.path(QStringLiteral("p.png"));
    EXPECT_FALSE(pictures.ofFile(file).has_value());
    write(QStringLiteral("p.png"), colourfulPicture(40, 30));
    EXPECT_TRUE(pictures.ofFile(file).has_value());
    QFile::remove(file);
    EXPECT_FALSE(pictures.ofFile(file).has_value());
}

TEST_F(ItemPicturesTest, OfAFileThatIsNoPictureAreNull) {
    const QString file = folder.write(QStringLiteral("p.png"), "no picture");
    ASSERT_TRUE(pictures.ofFile(file).has_value());
    EXPECT_TRUE(pictures.ofFile(file)->isNull());
}

TEST_F(ItemPicturesTest, BeyondWhatIsKeptAreReadAgain) {
    constexpr int BytesPerDot = 4;
    const int side = static_cast<int>(std::sqrt(velnor::MaximumKeptPictures / BytesPerDot)) + 1;
    QImage large(side, side, QImage::Format_RGB32);
    large.fill(Qt::red);
    const QString file = write(QStringLiteral("large.png"), large);
    EXPECT_EQ(pictures.ofFile(file)->width(), side);
    write(QStringLiteral("large.png"), colourfulPicture(9, 9));
    EXPECT_EQ(pictures.ofFile(file)->width(), 9);
}

TEST_F(ItemPicturesTest, OfABarcodeAreThoseOfZint) {
    ZintRequest request;
    request.data = "4711";
    const VelnorDrawableBarcode item = barcodeOf(QStringLiteral("4711"));
    EXPECT_TRUE(samePicture(pictures.ofBarcode(item).value(), zintPicture(request)));
}

TEST_F(ItemPicturesTest, OfABarcodeAreMadeOnce) {
    VelnorDrawableBarcode item = barcodeOf(QStringLiteral("4711"));
    const QImage first = pictures.ofBarcode(item).value();
    item.text = QStringLiteral("another, longer text");
    EXPECT_EQ(pictures.ofBarcode(item).value(), first);
}

TEST_F(ItemPicturesTest, OfEqualBarcodesAreEachItsOwn) {
    const VelnorDrawableBarcode one = barcodeOf(QStringLiteral("1"));
    const VelnorDrawableBarcode two = barcodeOf(QStringLiteral("22222222"));
    EXPECT_NE(pictures.ofBarcode(one)->width(), pictures.ofBarcode(two)->width());
}

TEST_F(ItemPicturesTest, OfARefusedBarcodeAreNone) {
    EXPECT_FALSE(pictures.ofBarcode(barcodeOf(QString())).has_value());
    VelnorDrawableBarcode item = barcodeOf(QString());
    EXPECT_FALSE(pictures.ofBarcode(item).has_value());
    EXPECT_FALSE(pictures.ofBarcode(item).has_value());
}

} // namespace
