#include "document/codes.h"
#include "library_limits.h"
#include "render/velnorbarcode.h"
#include "support/peak_memory.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/zint_pictures.h"

#include <QImage>

#include <limits>

namespace {

constexpr int NoOption = velnor::BarcodeOptionNotGiven;
constexpr int NotGivenBox = -1;
constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr long PermittedMegabytes = 700;
constexpr qint64 PermittedDots = 70LL * 1000 * 1000;

class HostileBarcode : public testing::Test {
protected:
    // Whatever is asked for: an answer, bounded memory, a bounded picture, no word of Qt's.
    int create(int type, const QByteArray& data, int inputMode, const QByteArray& primary,
               int option, int width, int height) {
        const PeakMemory memory;
        const QtMessages messages;
        const int result =
            VelnorBarcode().CreateBarcode(type, 1, data.constData(), inputMode, primary.constData(),
                                          option, option, option, &made, width, height);
        EXPECT_TRUE(result == 0 || result == -1);
        EXPECT_LT(memory.risenMegabytes(), PermittedMegabytes);
        EXPECT_EQ(messages.heard(), "");
        const QSize size = made.size();
        EXPECT_LT(static_cast<qint64>(size.width()) * size.height(), PermittedDots);
        return result;
    }
    bool pictureExists() const { return !made.isNull(); }

    QImage made;
};

// The longest text that fits into the largest QR code.
QByteArray muchText() {
    return QByteArray(2900, 'a');
}

struct BoxRow : Row {
    int type;
    QByteArray data;
    int width;
    int height;
};

class HostileBox : public HostileBarcode, public testing::WithParamInterface<BoxRow> {};

// Each of these boxes fits within zint's own limits, but not within a picture of an item.
TEST_P(HostileBox, KeepsTheFirstPicture) {
    const BoxRow& row = GetParam();
    EXPECT_EQ(create(row.type, row.data, UNICODE_MODE, "", NoOption, row.width, row.height), -1);
    EXPECT_TRUE(pictureExists());
    ZintRequest smallest;
    smallest.type = row.type;
    smallest.data = row.data;
    smallest.showText = true;
    EXPECT_EQ(made.size(), zintPicture(smallest).size());
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeHostile, HostileBox,
    testing::Values(BoxRow{{"LargestQrCodeOf30000Dots"}, BARCODE_QRCODE, muchText(), 30000, 30000},
                    BoxRow{{"LargestQrCodeOf10000Dots"}, BARCODE_QRCODE, muchText(), 10000, 10000},
                    BoxRow{{"BarsOf200000Dots"}, BARCODE_CODE128, "Ticket 4711", 7250, 200000},
                    BoxRow{{"WideBarsOf16000Dots"}, BARCODE_CODE128, "Ticket 4711", 14500, 16000},
                    BoxRow{{"LongPdf417"}, BARCODE_PDF417, QByteArray(900, 'a'), 25000, 30000},
                    BoxRow{{"ShortSymbolOf400000Dots"},
                           BARCODE_DAFT,
                           "FADTFADTFADTFADTFADTFADTFADTFADT",
                           6300,
                           400000}),
    RuleAsName());

TEST_F(HostileBarcode, OfMoreDataThanAnySymbolHoldsIsRefused) {
    const QByteArray data(velnor::MaximumBarcodeData + 1, '0');
    EXPECT_EQ(create(BARCODE_QRCODE, data, UNICODE_MODE, {}, NoOption, NotGivenBox, NotGivenBox),
              -1);
    EXPECT_FALSE(pictureExists());
}

struct AddOnRow : Row {
    int type;
    QByteArray data;
    QByteArray primary;
    int lowestBars; // modules
};

class AddOn : public HostileBarcode, public testing::WithParamInterface<AddOnRow> {
protected:
    int createWithBars(int height, int showText) {
        int width = 0;
        int doubledHeight = 0;
        return VelnorBarcode().CreateBaseBarcode(
            GetParam().type, showText, GetParam().data.constData(), UNICODE_MODE,
            GetParam().primary.constData(), NoOption, NoOption, NoOption, &made, &width,
            &doubledHeight, height, 0.5F);
    }
};

// zint would draw the bars of the add-on outside its picture.
TEST_P(AddOn, IsRefusedWithBarsThatEndAboveIt) {
    for (const int showText : {0, 1}) {
        for (int height = 1; height < GetParam().lowestBars; ++height) {
            EXPECT_EQ(createWithBars(height, showText), -1) << height;
        }
        EXPECT_FALSE(pictureExists());
        EXPECT_EQ(createWithBars(GetParam().lowestBars, showText), 0);
        EXPECT_TRUE(pictureExists());
        made = QImage();
    }
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeHostile, AddOn,
    testing::Values(AddOnRow{{"Ean13"}, BARCODE_EANX, "9780877799306+54321", "", 8},
                    AddOnRow{{"Ean8"}, BARCODE_EANX, "1234567+12", "", 8},
                    AddOnRow{{"CheckedEan"}, BARCODE_EANX_CHK, "9780877799306+12", "", 8},
                    AddOnRow{{"UpcA"}, BARCODE_UPCA, "72527270270+12", "", 8},
                    AddOnRow{{"CheckedUpcA"}, BARCODE_UPCA_CHK, "725272702703+12", "", 8},
                    AddOnRow{{"UpcE"}, BARCODE_UPCE, "1123456+12", "", 8},
                    AddOnRow{{"CheckedUpcE"}, BARCODE_UPCE_CHK, "11234562+12", "", 8},
                    AddOnRow{{"Isbn"}, BARCODE_ISBNX, "9789295055124+12", "", 8},
                    AddOnRow{{"CompositeEan"}, BARCODE_EANX_CC, "[21]A", "331234567890+12", 20},
                    AddOnRow{{"CompositeUpcA"}, BARCODE_UPCA_CC, "[21]A", "72527270270+12", 20},
                    AddOnRow{{"CompositeUpcE"}, BARCODE_UPCE_CC, "[21]A", "1123456+12", 24}),
    RuleAsName());

TEST_F(HostileBarcode, OfAHundredThousandBytesIsRefused) {
    for (const int type : {BARCODE_CODE128, BARCODE_QRCODE, BARCODE_DATAMATRIX, BARCODE_PDF417,
                           BARCODE_HANXIN, BARCODE_DOTCODE, BARCODE_CODEONE, BARCODE_CODABLOCKF}) {
        EXPECT_EQ(create(type, QByteArray(100000, '1'), UNICODE_MODE, "", NoOption, 300, 300), -1);
        EXPECT_FALSE(pictureExists());
    }
}

TEST_F(HostileBarcode, OfAHundredThousandEscapesOrBytesIsRefused) {
    EXPECT_EQ(create(BARCODE_QRCODE, QByteArray("\\t").repeated(50000), UNICODE_MODE, "", NoOption,
                     300, 300),
              -1);
    EXPECT_EQ(create(BARCODE_QRCODE, QByteArray("41,").repeated(33333) + "41", DATA_MODE, "",
                     NoOption, 300, 300),
              -1);
    EXPECT_FALSE(pictureExists());
}

TEST_F(HostileBarcode, OfBrokenUtf8IsAnswered) {
    for (int inputMode = 0; inputMode < 5; ++inputMode) {
        create(BARCODE_QRCODE, "\xff\xfe\xc3", inputMode, "\xff\xc3", NoOption, 300, 300);
        create(BARCODE_CODE128, "\xff\xfe\xc3", inputMode, "\xff\xc3", NoOption, 300, 300);
    }
}

class HostileOption : public HostileBarcode, public testing::WithParamInterface<int> {};

TEST_P(HostileOption, IsAnsweredByEverySymbology) {
    for (int type = 0; type <= BARCODE_LAST + 1; ++type) {
        for (const char* data : {"123456789012", "[01]09501101530003", "A"}) {
            SCOPED_TRACE(type);
            create(type, data, UNICODE_MODE, "1234567", GetParam(), 200, 200);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BarcodeHostile, HostileOption,
                         testing::Values(Lowest, -1000, -1, 0, 1, 9, 40, 99, 1000, 65536, Highest));

class UnknownType : public HostileBarcode, public testing::WithParamInterface<int> {};

TEST_P(UnknownType, IsRefusedInEveryInputMode) {
    for (const int inputMode : {0, 1, 2, 3, 4, 5, -1, Highest}) {
        EXPECT_EQ(create(GetParam(), "A", inputMode, "", NoOption, 300, 300), -1);
        EXPECT_EQ(create(GetParam(), "A", inputMode, "", NoOption, NotGivenBox, NotGivenBox), -1);
    }
    EXPECT_FALSE(pictureExists());
}

INSTANTIATE_TEST_SUITE_P(BarcodeHostile, UnknownType,
                         testing::Values(0, -1, Lowest, BARCODE_LAST + 1, 99999, Highest));

TEST_F(HostileBarcode, OfColouredModulesIsAnswered) {
    EXPECT_EQ(create(BARCODE_ULTRA, "A", UNICODE_MODE, "", NoOption, 300, 300), 0);
    EXPECT_TRUE(pictureExists());
}

} // namespace
