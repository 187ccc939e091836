#include "document/codes.h"
#include "render/velnorbarcode.h"
#include "support/pictures.h"
#include "support/printing.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/zint_pictures.h"

namespace {

constexpr int NoOption = velnor::BarcodeOptionNotGiven;
constexpr int DefaultHeight = -1;
constexpr float DefaultScale = 0.0F;

// What the operation is given; zint's defaults unless set.
struct Item {
    int type = BARCODE_CODE128;
    QByteArray data = "Ticket 4711";
    int hrt = 0;
    int inputMode = UNICODE_MODE;
    const char* primary = nullptr;
    int option1 = NoOption;
    int option2 = NoOption;
    int option3 = NoOption;
    int barHeight = DefaultHeight;
    float scale = HalfScale;
};

Item itemOf(int type, const QByteArray& data) {
    Item item;
    item.type = type;
    item.data = data;
    return item;
}

class BarcodeSymbol : public testing::Test {
protected:
    int create(const Item& item) {
        return VelnorBarcode().CreateBaseBarcode(item.type, item.hrt, item.data.constData(),
                                                 item.inputMode, item.primary, item.option1,
                                                 item.option2, item.option3, &made, &doubledWidth,
                                                 &doubledHeight, item.barHeight, item.scale);
    }
    // The picture is what zint draws for the request.
    void expectPictureOf(const Item& item, const ZintRequest& request) {
        EXPECT_EQ(create(item), 0);
        EXPECT_TRUE(samePicture(made, zintPicture(request)));
    }

    QImage made;
    int doubledWidth = -77;
    int doubledHeight = -77;
};

TEST_F(BarcodeSymbol, IsZintsPictureDotByDot) {
    expectPictureOf(Item(), ZintRequest());
    EXPECT_GT(inkDots(made), 0);
    EXPECT_FALSE(hasGrey(made));
}

TEST_F(BarcodeSymbol, HasOneBitADot) {
    create(Item());
    EXPECT_EQ(made.format(), QImage::Format_Mono);
}

TEST_F(BarcodeSymbol, ThatIsRefusedLeavesThePictureAsItWas) {
    create(Item());
    const QImage before = made;
    EXPECT_EQ(create(itemOf(BARCODE_EANX, "no digits")), -1);
    EXPECT_EQ(made, before);
}

TEST_F(BarcodeSymbol, ReportsTwiceItsModules) {
    create(itemOf(BARCODE_QRCODE, "https://www.example.org/ticket/471"));
    EXPECT_EQ(doubledWidth, 58);
    EXPECT_EQ(doubledHeight, 58);
    EXPECT_EQ(made.size(), QSize(29, 29));
    create(Item());
    EXPECT_EQ(doubledHeight, 100);
    EXPECT_EQ(doubledWidth, 2 * made.width());
}

TEST_F(BarcodeSymbol, HasTheBarHeightAndTheScaleThatItIsGiven) {
    Item item;
    item.barHeight = 33;
    item.scale = 1.5F;
    ZintRequest request;
    request.height = 33;
    request.scale = 1.5F;
    expectPictureOf(item, request);
    EXPECT_EQ(doubledHeight, 66);
}

TEST_F(BarcodeSymbol, HasZintsScaleAndHeightWhereNoneIsGiven) {
    Item item;
    item.scale = DefaultScale;
    ZintRequest request;
    request.scale = 1.0F;
    expectPictureOf(item, request);
}

class HumanReadableText : public BarcodeSymbol, public testing::WithParamInterface<int> {};

TEST_P(HumanReadableText, IsShownForOneAlone) {
    Item item = itemOf(BARCODE_EANX, "123456789012");
    item.hrt = GetParam();
    item.scale = 2.0F;
    ZintRequest request;
    request.type = item.type;
    request.data = item.data;
    request.scale = item.scale;
    request.showText = GetParam() == 1;
    expectPictureOf(item, request);
}

INSTANTIATE_TEST_SUITE_P(BarcodeSymbol, HumanReadableText, testing::Values(0, 1, 2, -1, 255));

TEST_F(BarcodeSymbol, WithTextDiffersFromTheOneWithout) {
    Item item;
    item.scale = 1.0F;
    create(item);
    const QImage bars = made;
    item.hrt = 1;
    create(item);
    EXPECT_GT(made.height(), bars.height());
}

// Every symbology that prints text, hidden: bars, guards and composites stay whole.
TEST_F(BarcodeSymbol, WithoutTextIsTheOneThatZintDrawsWithTextOff) {
    const QList<Item> items = {
        itemOf(BARCODE_EANX, "9780123456786+12345"), itemOf(BARCODE_ISBNX, "9780123456786"),
        itemOf(BARCODE_UPCA, "01234567890"),         itemOf(BARCODE_UPCE, "123456"),
        itemOf(BARCODE_ITF14, "1234567890123"),      itemOf(BARCODE_CODE39, "TICKET")};
    for (Item item : items) {
        item.scale = 1.0F;
        ZintRequest request;
        request.type = item.type;
        request.data = item.data;
        request.scale = item.scale;
        expectPictureOf(item, request);
    }
}

TEST_F(BarcodeSymbol, OfACompositeCarriesItsPrimaryMessage) {
    Item item = itemOf(BARCODE_EANX_CC, "[10]ABC123");
    item.primary = "331234567890";
    item.inputMode = GS1_MODE;
    ZintRequest request;
    request.type = item.type;
    request.data = item.data;
    request.inputMode = GS1_MODE;
    request.primary = item.primary;
    expectPictureOf(item, request);
}

TEST_F(BarcodeSymbol, TakesAnEmptyPrimaryMessageAsNone) {
    Item item = itemOf(BARCODE_QRCODE, "A");
    create(item);
    const QImage without = made;
    item.primary = "";
    EXPECT_EQ(create(item), 0);
    EXPECT_TRUE(samePicture(made, without));
}

TEST_F(BarcodeSymbol, SurvivesAPrimaryMessageOfAnyLength) {
    for (const int length : {126, 127, 128, 129, 4096, 100000}) {
        const QByteArray primary(length, '1');
        Item item = itemOf(BARCODE_EANX_CC, "[10]ABC123");
        item.primary = primary.constData();
        EXPECT_EQ(create(item), -1) << length;
    }
}

struct PrimaryRow : Row {
    QByteArray tail; // of a message that starts with 120 bytes of numbers
    QByteArray kept; // null: refused
};

class LongPrimary : public BarcodeSymbol, public testing::WithParamInterface<PrimaryRow> {};

TEST_P(LongPrimary, HasAtMost127Bytes) {
    const QByteArray start = QByteArray("[20]12").repeated(20);
    const QByteArray primary = start + GetParam().tail;
    Item item = itemOf(BARCODE_GS1_128_CC, "[10]ABC123");
    item.primary = primary.constData();
    item.inputMode = GS1_MODE;
    ZintRequest request;
    request.type = item.type;
    request.data = item.data;
    request.inputMode = GS1_MODE;
    request.primary = start + GetParam().kept;
    if (GetParam().kept.isNull()) {
        EXPECT_EQ(create(item), -1);
    } else {
        expectPictureOf(item, request);
    }
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeSymbol, LongPrimary,
    testing::Values(
        PrimaryRow{{"Of126BytesIsKept"}, "[10]ab", "[10]ab"},
        PrimaryRow{{"Of127BytesIsKept"}, "[10]abc", "[10]abc"},
        PrimaryRow{{"Of128BytesLosesOne"}, "[10]abcd", "[10]abc"},
        PrimaryRow{{"OfManyBytesLosesTheRest"}, "[10]abc" + QByteArray(100000, 'd'), "[10]abc"},
        PrimaryRow{{"LosesALetterBehindTheLastByte"}, "[10]abc\xc3\xa9", "[10]abc"},
        PrimaryRow{{"IsCutInTheMiddleOfALetter"}, "[10]ab\xc3\xa9", {}}),
    RuleAsName());

struct OptionRow : Row {
    int type;
    int option1;
    int option2;
    int option3;
};

class SymbolOption : public BarcodeSymbol, public testing::WithParamInterface<OptionRow> {};

TEST_P(SymbolOption, IsHandedToZintUnlessNotGiven) {
    const OptionRow& row = GetParam();
    Item item = itemOf(row.type, "TICKET 4711");
    item.option1 = row.option1;
    item.option2 = row.option2;
    item.option3 = row.option3;
    ZintRequest request;
    request.type = row.type;
    request.data = item.data;
    request.option1 = row.option1 == NoOption ? request.option1 : row.option1;
    request.option2 = row.option2 == NoOption ? request.option2 : row.option2;
    request.option3 = row.option3 == NoOption ? request.option3 : row.option3;
    expectPictureOf(item, request);
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeSymbol, SymbolOption,
    testing::Values(OptionRow{{"NoneGiven"}, BARCODE_QRCODE, NoOption, NoOption, NoOption},
                    OptionRow{{"FirstAlone"}, BARCODE_QRCODE, 4, NoOption, NoOption},
                    OptionRow{{"SecondAlone"}, BARCODE_QRCODE, NoOption, 7, NoOption},
                    OptionRow{{"ThirdAlone"}, BARCODE_PDF417, NoOption, NoOption, 20},
                    OptionRow{{"AllThree"}, BARCODE_PDF417, 5, 4, 25},
                    OptionRow{{"ZeroIsGiven"}, BARCODE_CODE39, 0, 1, 0}),
    RuleAsName());

class InputMode : public BarcodeSymbol, public testing::WithParamInterface<int> {};

TEST_P(InputMode, IsZintsFromZeroToFourElseUnicode) {
    Item item = itemOf(BARCODE_CODE128, "\xc3\xbc[10]A");
    item.inputMode = GetParam();
    ZintRequest request;
    request.data = item.data;
    const bool known = GetParam() >= 1 && GetParam() <= 4; // 0 falls back here: no hexadecimal
    request.inputMode = known ? GetParam() : UNICODE_MODE;
    if (zintResult(request) >= ZINT_ERROR) {
        EXPECT_EQ(create(item), -1);
    } else {
        expectPictureOf(item, request);
    }
}

INSTANTIATE_TEST_SUITE_P(BarcodeSymbol, InputMode,
                         testing::Values(0, 1, 2, 3, 4, 5, 8, 64, -1, -2147483647 - 1, 2147483647));

TEST_F(BarcodeSymbol, OfHexadecimalBytesHoldsTheBytes) {
    Item item = itemOf(BARCODE_CODE128, "41,42,43");
    item.inputMode = DATA_MODE;
    ZintRequest request;
    request.data = "ABC";
    expectPictureOf(item, request);
}

} // namespace
