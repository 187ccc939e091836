#include "render/velnorbarcode.h"
#include "support/printing.h"
#include "support/rows.h"
#include "support/zint_pictures.h"

#include <QList>

namespace {

// What an encoding leaves in a symbol.
struct Encoded {
    int result;
    int inputMode;
    QByteArray modules;
};

Encoded encodedBy(const zint_symbol& symbol, int result) {
    QByteArray modules(reinterpret_cast<const char*>(symbol.encoded_data),
                       static_cast<int>(sizeof(symbol.encoded_data)));
    return {result, symbol.input_mode, modules};
}

ZintRequest dataMatrix(const QByteArray& data, int inputMode) {
    ZintRequest request;
    request.type = BARCODE_DATAMATRIX;
    request.data = data;
    request.inputMode = inputMode;
    return request;
}

// The library prepares the data.
Encoded prepared(QByteArray data, int inputMode) {
    const ZintSymbol symbol = makeSymbol(dataMatrix(data, inputMode));
    const int result = VelnorBarcode().escape_char_process(
        symbol.get(), reinterpret_cast<unsigned char*>(data.data()), data.size());
    return encodedBy(*symbol, result);
}

// zint gets the bytes as they are.
Encoded direct(const QByteArray& bytes, int inputMode) {
    const ZintSymbol symbol = makeSymbol(dataMatrix(bytes, inputMode));
    const int result = ZBarcode_Encode(
        symbol.get(), reinterpret_cast<const unsigned char*>(bytes.constData()), bytes.size());
    return encodedBy(*symbol, result);
}

struct DataRow : Row {
    QByteArray given;
    QByteArray bytes;
};

class EscapedText : public testing::TestWithParam<DataRow> {};

TEST_P(EscapedText, BecomesTheseBytes) {
    const Encoded actual = prepared(GetParam().given, UNICODE_MODE);
    const Encoded expected = direct(GetParam().bytes, UNICODE_MODE);
    EXPECT_EQ(expected.result, 0);
    EXPECT_EQ(actual.result, expected.result);
    EXPECT_EQ(actual.inputMode, UNICODE_MODE);
    EXPECT_EQ(actual.modules, expected.modules);
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeData, EscapedText,
    testing::Values(DataRow{{"PlainText"}, "Ticket", "Ticket"},
                    DataRow{{"Zero"}, "A\\0B", QByteArray("A\0B", 3)},
                    DataRow{{"EndOfTransmission"},
                            "A\\EB",
                            "A\x04"
                            "B"},
                    DataRow{{"Bell"},
                            "A\\aB",
                            "A\x07"
                            "B"},
                    DataRow{{"Backspace"},
                            "A\\bB",
                            "A\x08"
                            "B"},
                    DataRow{{"Tab"},
                            "A\\tB",
                            "A\x09"
                            "B"},
                    DataRow{{"LineFeed"},
                            "A\\nB",
                            "A\x0a"
                            "B"},
                    DataRow{{"VerticalTab"},
                            "A\\vB",
                            "A\x0b"
                            "B"},
                    DataRow{{"FormFeed"},
                            "A\\fB",
                            "A\x0c"
                            "B"},
                    DataRow{{"CarriageReturn"},
                            "A\\rB",
                            "A\x0d"
                            "B"},
                    DataRow{{"GroupSeparator"},
                            "A\\GB",
                            "A\x1d"
                            "B"},
                    DataRow{{"RecordSeparator"},
                            "A\\RB",
                            "A\x1e"
                            "B"},
                    DataRow{{"EscapeByte"},
                            "A\\eB",
                            "A\x1b"
                            "B"},
                    DataRow{{"Backslash"}, "A\\\\B", "A\\B"},
                    DataRow{{"BackslashBeforeALetterOfAnEscape"}, "A\\\\tB", "A\\tB"},
                    DataRow{{"UnknownEscapeIsKept"}, "A\\qB", "A\\qB"},
                    DataRow{{"EscapeAfterAnUnknownOne"}, "\\q\\t", "\\q\t"},
                    DataRow{{"BackslashAtTheEnd"}, "AB\\", "AB\\"},
                    DataRow{{"UpperCaseLettersAreNoEscapes"}, "\\T\\N\\A", "\\T\\N\\A"},
                    DataRow{{"EscapeAtTheStart"}, "\\tAB", "\tAB"},
                    DataRow{{"OnlyEscapes"}, "\\t\\n\\r", "\t\n\r"},
                    DataRow{{"Utf8Letters"}, "\xc3\xbc\\t", "\xc3\xbc\t"}),
    RuleAsName());

class HexadecimalBytes : public testing::TestWithParam<DataRow> {};

TEST_P(HexadecimalBytes, AreTheData) {
    const Encoded actual = prepared(GetParam().given, DATA_MODE);
    const Encoded expected = direct(GetParam().bytes, DATA_MODE);
    EXPECT_EQ(expected.result, 0);
    EXPECT_EQ(actual.result, expected.result);
    EXPECT_EQ(actual.inputMode, DATA_MODE);
    EXPECT_EQ(actual.modules, expected.modules);
}

INSTANTIATE_TEST_SUITE_P(BarcodeData, HexadecimalBytes,
                         testing::Values(DataRow{{"InOrder"}, "41,42,43", "ABC"},
                                         DataRow{{"OneAlone"}, "7e", "~"},
                                         DataRow{{"InEitherCase"}, "4A,4a", "JJ"},
                                         DataRow{{"OfOneDigit"}, "41,9,42", "A\tB"},
                                         DataRow{{"WithLeadingZeros"}, "0041,042", "AB"},
                                         DataRow{{"OfZero"}, "41,0,42", QByteArray("A\0B", 3)},
                                         DataRow{{"UpToFF"}, "FF,80", "\xff\x80"}),
                         RuleAsName());

class NoHexadecimalBytes : public testing::TestWithParam<DataRow> {};

TEST_P(NoHexadecimalBytes, AreReadAsTextWithEscapes) {
    const Encoded actual = prepared(GetParam().given, DATA_MODE);
    const Encoded expected = direct(GetParam().bytes, UNICODE_MODE);
    EXPECT_LT(expected.result, ZINT_ERROR);
    EXPECT_EQ(actual.result, expected.result);
    EXPECT_EQ(actual.inputMode, UNICODE_MODE);
    EXPECT_EQ(actual.modules, expected.modules);
}

INSTANTIATE_TEST_SUITE_P(
    BarcodeData, NoHexadecimalBytes,
    testing::Values(DataRow{{"LetterBeyondF"}, "41,4G2", "41,4G2"},
                    DataRow{{"ValueAboveFF"}, "41,100", "41,100"},
                    DataRow{{"ValueBeyond32Bits"}, "41,100000041", "41,100000041"},
                    DataRow{{"EmptyPartInTheMiddle"}, "41,,42", "41,,42"},
                    DataRow{{"CommaAtTheEnd"}, "41,", "41,"},
                    DataRow{{"CommaAtTheStart"}, ",41", ",41"}, DataRow{{"CommaAlone"}, ",", ","},
                    DataRow{{"OtherSeparator"}, "41;42", "41;42"},
                    DataRow{{"EscapesInTheFallback"}, "xy\\tz", "xy\tz"},
                    DataRow{{"LettersOutsideLatin1"}, "\xe2\x82\xac,41", "\xe2\x82\xac,41"}),
    RuleAsName());

TEST(BarcodeData, ThatIsEmptyIsRefusedInEveryInputMode) {
    for (int inputMode = 0; inputMode < 5; ++inputMode) {
        EXPECT_GE(prepared(QByteArray(), inputMode).result, ZINT_ERROR) << inputMode;
    }
}

TEST(BarcodeData, GivesTheResultOfTheEncoding) {
    ZintRequest request = dataMatrix("\xe2\x82\xac", UNICODE_MODE);
    request.type = BARCODE_QRCODE;
    QByteArray euro = request.data;
    const ZintSymbol symbol = makeSymbol(request);
    EXPECT_EQ(VelnorBarcode().escape_char_process(
                  symbol.get(), reinterpret_cast<unsigned char*>(euro.data()), euro.size()),
              ZINT_WARN_USES_ECI);
}

TEST(BarcodeData, BarHeightIsFixedForExactlyTheseSymbologies) {
    const QList<int> fixed = {40, 55, 57, 58, 63, 66, 67, 68, 70, 71, 79, 82, 84, 85};
    for (int type = -10; type <= 200; ++type) {
        EXPECT_EQ(VelnorBarcode().VariableHeightAvailable(type), !fixed.contains(type)) << type;
    }
    EXPECT_TRUE(VelnorBarcode().VariableHeightAvailable(99999));
}

} // namespace
