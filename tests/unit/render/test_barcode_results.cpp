#include "document/codes.h"
#include "render/velnorbarcode.h"
#include "support/rows.h"
#include "support/same_picture.h"
#include "support/zint_pictures.h"

namespace {

constexpr int NoOption = velnor::BarcodeOptionNotGiven;

struct ResultRow : Row {
    int type;
    QByteArray data;
    int option1;
    int zintResult;
    int expected;
};

class BarcodeResult : public testing::TestWithParam<ResultRow> {};

TEST_P(BarcodeResult, IsSuccessWhereTheSymbolIsComplete) {
    const ResultRow& row = GetParam();
    ZintRequest request;
    request.type = row.type;
    request.data = row.data;
    request.option1 = row.option1 == NoOption ? request.option1 : row.option1;
    ASSERT_EQ(zintResult(request), row.zintResult);

    QImage made;
    EXPECT_EQ(VelnorBarcode().CreateBarcode(row.type, 0, row.data.constData(), UNICODE_MODE,
                                            nullptr, row.option1, NoOption, NoOption, &made, -1,
                                            -1),
              row.expected);
    if (row.expected == 0) {
        EXPECT_TRUE(samePicture(made, zintPicture(request)));
    } else {
        EXPECT_TRUE(made.isNull());
    }
}

const QByteArray BadChecksum = "[01]12345678901234";

INSTANTIATE_TEST_SUITE_P(
    BarcodeResults, BarcodeResult,
    testing::Values(
        ResultRow{{"Encoded"}, BARCODE_CODE128, "A", NoOption, 0, 0},
        ResultRow{{"CharacterSetSwitchInserted"},
                  BARCODE_QRCODE,
                  "\xe2\x82\xac",
                  NoOption,
                  ZINT_WARN_USES_ECI,
                  0},
        ResultRow{{"CyrillicBesideTheStandard"},
                  BARCODE_QRCODE,
                  "\xd0\x96",
                  NoOption,
                  ZINT_WARN_NONCOMPLIANT,
                  0},
        ResultRow{{"ChecksumBesideTheStandard"},
                  BARCODE_GS1_128,
                  BadChecksum,
                  NoOption,
                  ZINT_WARN_NONCOMPLIANT,
                  0},
        ResultRow{{"InvalidOption"}, BARCODE_PDF417, "A", 99, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"DataTooLong"},
                  BARCODE_CODE128,
                  QByteArray(200, 'A'),
                  NoOption,
                  ZINT_ERROR_TOO_LONG,
                  -1},
        ResultRow{{"LettersInANumber"}, BARCODE_EANX, "12A", NoOption, ZINT_ERROR_INVALID_DATA, -1},
        ResultRow{{"WrongCheckDigit"},
                  BARCODE_ISBNX,
                  "9780123456780",
                  NoOption,
                  ZINT_ERROR_INVALID_CHECK,
                  -1},
        ResultRow{{"NoData"}, BARCODE_CODE128, "", NoOption, ZINT_ERROR_INVALID_DATA, -1},
        ResultRow{{"EuroOutsideTheSymbologysSet"},
                  BARCODE_CODE128,
                  "\xe2\x82\xac",
                  NoOption,
                  ZINT_ERROR_INVALID_DATA,
                  -1},
        ResultRow{{"TypeZero"}, 0, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"NegativeType"}, -1, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"TypeFarBeyondTheLast"}, 99999, "A", NoOption, ZINT_WARN_INVALID_OPTION, -1},
        ResultRow{{"TypeThatZintKnowsBeyondThoseThatValidationAccepts"}, 143, "A", NoOption, 0, 0}),
    RuleAsName());

} // namespace
