#include "render/barcode_item.h"
#include "support/same_picture.h"
#include "support/zint_pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::StartsWith;
using velnor::BarcodeSymbol;
using velnor::symbolOf;

VelnorDrawableBarcode barcodeOf(int type, const QString& data) {
    VelnorDrawableBarcode item;
    item.barcodeType = type;
    item.text = data;
    return item;
}

std::string words(const QString& text) {
    return text.toStdString();
}

TEST(BarcodeItem, HasThePictureThatItIsDrawnWith) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_CODE128, QStringLiteral("Ticket 4711"));
    const BarcodeSymbol symbol = symbolOf(item);
    EXPECT_TRUE(samePicture(symbol.picture, zintPicture(ZintRequest())));
    EXPECT_EQ(words(symbol.refusal), "");
    EXPECT_EQ(words(symbol.warning), "");
}

TEST(BarcodeItem, TellsTheDotsOfAModule) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_QRCODE, QStringLiteral("A"));
    EXPECT_EQ(symbolOf(item).moduleDots, 1.0);
    item.width = 4 * 21;
    EXPECT_EQ(symbolOf(item).moduleDots, 4.0);
    item.width += 20;
    EXPECT_EQ(symbolOf(item).moduleDots, 4.0);
}

TEST(BarcodeItem, OfBarsWithAHeightAloneHasModulesOfTwoDots) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_CODE128, QStringLiteral("A"));
    item.height = 60;
    EXPECT_EQ(symbolOf(item).moduleDots, 2.0);
}

TEST(BarcodeItem, ThatIsRefusedHasNoPictureAndTheWordsOfZint) {
    const BarcodeSymbol symbol = symbolOf(barcodeOf(BARCODE_EANX, QStringLiteral("no digits")));
    EXPECT_TRUE(symbol.picture.isNull());
    EXPECT_THAT(words(symbol.refusal), StartsWith("Error "));
}

TEST(BarcodeItem, ThatZintOnlyWarnsOfIsRefusedWithThatWarning) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_PDF417, QStringLiteral("A"));
    item.option1 = 99;
    EXPECT_TRUE(symbolOf(item).picture.isNull());
    EXPECT_THAT(words(symbolOf(item).refusal), StartsWith("Warning "));
}

TEST(BarcodeItem, WhoseBoxIsTooLargeStaysSmallAndSaysWhy) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_QRCODE, QStringLiteral("A"));
    item.width = item.height = 9000;
    const BarcodeSymbol symbol = symbolOf(item);
    EXPECT_EQ(symbol.picture.width(), 21);
    EXPECT_EQ(symbol.moduleDots, 1.0);
    EXPECT_THAT(words(symbol.refusal), StartsWith("Error "));
}

TEST(BarcodeItem, BeyondALimitIsRefusedInTheWordsOfTheLibrary) {
    const QString data(200 * 1000, QLatin1Char('A'));
    const BarcodeSymbol symbol = symbolOf(barcodeOf(BARCODE_QRCODE, data));
    EXPECT_TRUE(symbol.picture.isNull());
    EXPECT_EQ(words(symbol.refusal), "the symbol is beyond the limits of the library");
}

// Such a message has at most 15 bytes, of which the postcode shows the first six.
TEST(BarcodeItem, CountsItsPrimaryMessageInBytesOfUtf8) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_MAXICODE, QStringLiteral("DATA"));
    item.primary = QStringLiteral("ABCDEF\u00e9G840001");
    ZintRequest request;
    request.type = item.barcodeType;
    request.data = "DATA";
    request.primary = "ABCDEF840001";
    EXPECT_TRUE(samePicture(symbolOf(item).picture, zintPicture(request)));
    item.primary = QStringLiteral("ABCDEF\u00e9GH840001");
    EXPECT_THAT(words(symbolOf(item).refusal), StartsWith("Error 551"));
}

TEST(BarcodeItem, BesideItsStandardHasAPictureAndTheWarningOfZint) {
    VelnorDrawableBarcode item = barcodeOf(BARCODE_GS1_128, QStringLiteral("[01]12345678901234"));
    item.inputmode = GS1_MODE;
    const BarcodeSymbol symbol = symbolOf(item);
    EXPECT_FALSE(symbol.picture.isNull());
    EXPECT_EQ(words(symbol.refusal), "");
    EXPECT_THAT(words(symbol.warning), StartsWith("Warning "));
}

} // namespace
