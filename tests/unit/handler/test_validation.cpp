// What validation finds in the items of a canvas.
#include "handler/velnorxml.h"

#include "font_folders.h"
#include "support/canvases.h"
#include "support/font_files.h"
#include "support/qt_messages.h"
#include "support/rows.h"
#include "support/text_fonts.h"

#include <QDir>
#include <QFontInfo>

#include <array>
#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

// The messages of a run; the result must tell whether there are any.
std::string findingsOf(const VelnorDrawableCanvas& canvas) {
    std::array<char, 2000> buffer{};
    const int result =
        VelnorXml::CheckIsCorrect(&canvas, buffer.data(), static_cast<int>(buffer.size()));
    const std::string findings(buffer.data());
    EXPECT_EQ(result, findings.empty() ? 0 : -1);
    return findings;
}

CanvasPointer emptyCanvas() {
    return makeCanvas(100, 100);
}

std::string findingsOfText(const QString& family, bool bold = false, bool italic = false) {
    const auto canvas = emptyCanvas();
    auto& text = addItem<VelnorDrawableText>(*canvas);
    text.id = QStringLiteral("t");
    text.text = QStringLiteral("Ticket");
    text.fontname = family;
    text.bold = bold;
    text.italic = italic;
    return findingsOf(*canvas);
}

std::string findingsOfImage(const QString& path) {
    const auto canvas = emptyCanvas();
    auto& image = addItem<VelnorDrawableImage>(*canvas);
    image.id = QStringLiteral("logo");
    image.filepath = path;
    return findingsOf(*canvas);
}

struct BarcodeRow : Row {
    int type;
    int inputMode;
    const char* data;
    const char* findings;
};

constexpr char NotHexadecimal[] =
    "Barcode item id=b: invalid hexadecimal value, render as unicode string; ";

const BarcodeRow Barcodes[] = {
    {"TheFirstTypeIsKnown", 1, 1, "x", ""},
    {"TheLastTypeIsKnown", 142, 1, "x", ""},
    {"TypeZeroIsInvalid", 0, 1, "x", "Barcode item id=b: invalid type(0) barcode; "},
    {"TheTypeAfterTheLastIsInvalid", 143, 1, "x", "Barcode item id=b: invalid type(143) barcode; "},
    {"ANegativeTypeIsInvalid", -1, 1, "x", "Barcode item id=b: invalid type(-1) barcode; "},
    {"TheLowestTypeIsInvalid", Lowest, 1, "x",
     "Barcode item id=b: invalid type(-2147483648) barcode; "},
    {"TheHighestTypeIsInvalid", Highest, 1, "x",
     "Barcode item id=b: invalid type(2147483647) barcode; "},
    {"EmptyDataIsTheOnlyFinding", 0, 0, "", "Barcode item id=b: null barcode; "},
    {"HexadecimalBytesPass", 20, 0, "0A,FF", ""},
    {"OneHexadecimalByteIsEnough", 20, 0, "7", ""},
    {"LowerCaseHexadecimalBytesPass", 20, 0, "0a,ff,00", ""},
    {"HexadecimalBytesWithLeadingZerosPass", 20, 0, "00FF", ""},
    {"AnEmptyPartIsNotHexadecimal", 20, 0, "0A,,FF", NotHexadecimal},
    {"ATrailingCommaIsNotHexadecimal", 20, 0, "0A,", NotHexadecimal},
    {"ALeadingCommaIsNotHexadecimal", 20, 0, ",0A", NotHexadecimal},
    {"ALoneCommaIsFoundOnce", 20, 0, ",", NotHexadecimal},
    {"AValueAboveOneByteIsNotHexadecimal", 20, 0, "100", NotHexadecimal},
    {"AValueBeyond32BitsIsNotHexadecimal", 20, 0, "1000000FF", NotHexadecimal},
    {"ALetterBeyondFIsNotHexadecimal", 20, 0, "G1", NotHexadecimal},
    {"ANegativeValueIsNotHexadecimal", 20, 0, "-1", NotHexadecimal},
    {"SeveralPartsThatFailAreFoundOnce", 20, 0, "G1,,100,zz", NotHexadecimal},
    {"InputModeOneTakesAnyData", 20, 1, "G1,,100", ""},
    {"InputModeTwoTakesAnyData", 20, 2, "G1,,100", ""},
    {"AnInvalidTypeIsFoundBeforeInvalidData", 0, 0, "G1",
     "Barcode item id=b: invalid type(0) barcode; "
     "Barcode item id=b: invalid hexadecimal value, render as unicode string; "},
};

class BarcodeFindings : public testing::TestWithParam<BarcodeRow> {};

TEST_P(BarcodeFindings, AreThese) {
    const auto canvas = emptyCanvas();
    auto& barcode = addItem<VelnorDrawableBarcode>(*canvas);
    barcode.id = QStringLiteral("b");
    barcode.barcodeType = GetParam().type;
    barcode.inputmode = GetParam().inputMode;
    barcode.text = QString::fromUtf8(GetParam().data);
    EXPECT_EQ(findingsOf(*canvas), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(Validation, BarcodeFindings, testing::ValuesIn(Barcodes), RuleAsName());

struct StrokeRow : Row {
    int thickness;
    int style;
    const char* findings; // after "<Kind> item id=s: " before each
};

const StrokeRow Strokes[] = {
    {"TheThinnestStrokePasses", 1, 0, ""},
    {"TheOtherStylePasses", 1, 1, ""},
    {"AThickStrokePasses", Highest, 1, ""},
    {"NoThicknessIsInvalid", 0, 0, "# invalid thickness(0); "},
    {"ANegativeThicknessIsInvalid", -5, 1, "# invalid thickness(-5); "},
    {"TheLowestThicknessIsInvalid", Lowest, 1, "# invalid thickness(-2147483648); "},
    {"StyleTwoIsInvalid", 1, 2, "# invalid style(2); "},
    {"ANegativeStyleIsInvalid", 1, -1, "# invalid style(-1); "},
    {"TheLowestStyleIsInvalid", 1, Lowest, "# invalid style(-2147483648); "},
    {"TheHighestStyleIsInvalid", 1, Highest, "# invalid style(2147483647); "},
    {"TheThicknessIsFoundBeforeTheStyle", 0, 2, "# invalid thickness(0); # invalid style(2); "},
};

class StrokeFindings : public testing::TestWithParam<StrokeRow> {
protected:
    template <typename Shape>
    static Shape& addShape(VelnorDrawableCanvas& canvas) {
        auto& shape = addItem<Shape>(canvas);
        shape.id = QStringLiteral("s");
        shape.thickness = GetParam().thickness;
        shape.style = GetParam().style;
        return shape;
    }

    static std::string expected(const char* kind) {
        const QString prefix = QLatin1String(kind) + QLatin1String(" item id=s:");
        return QString::fromLatin1(GetParam().findings)
            .replace(QLatin1Char('#'), prefix)
            .toStdString();
    }
};

TEST_P(StrokeFindings, OfARectangleAreThese) {
    const auto canvas = emptyCanvas();
    addShape<VelnorDrawableRectangle>(*canvas);
    EXPECT_EQ(findingsOf(*canvas), expected("Rectangle"));
}

TEST_P(StrokeFindings, OfAnEllipseAreThese) {
    const auto canvas = emptyCanvas();
    addShape<VelnorDrawableEllipse>(*canvas);
    EXPECT_EQ(findingsOf(*canvas), expected("Ellipse"));
}

TEST_P(StrokeFindings, OfALineAreThese) {
    const auto canvas = emptyCanvas();
    addShape<VelnorDrawableLine>(*canvas).length = 1;
    EXPECT_EQ(findingsOf(*canvas), expected("Line"));
}

TEST_P(StrokeFindings, OfALineComeBeforeItsLength) {
    const auto canvas = emptyCanvas();
    addShape<VelnorDrawableLine>(*canvas).length = 0;
    EXPECT_EQ(findingsOf(*canvas), expected("Line") + "Line item id=s: invalid length(0); ");
}

INSTANTIATE_TEST_SUITE_P(Validation, StrokeFindings, testing::ValuesIn(Strokes), RuleAsName());

TEST(ImageFindings, OfAnExistingFileAreNone) {
    EXPECT_EQ(findingsOfImage(QStringLiteral(VELNOR_TEST_FONTS "/LiberationSans-Bold.ttf")), "");
}

TEST(ImageFindings, OfAnExistingFolderAreNone) {
    EXPECT_EQ(findingsOfImage(QDir::rootPath()), "");
}

TEST(ImageFindings, OfAFileInASearchPathAreNone) {
    QDir::addSearchPath(QStringLiteral("art"), QStringLiteral(VELNOR_TEST_FONTS));
    EXPECT_EQ(findingsOfImage(QStringLiteral("art:LiberationSans-Bold.ttf")), "");
    EXPECT_EQ(findingsOfImage(QStringLiteral("art:none.png")),
              "Image item id=logo: invalid filepath(art:none.png); ");
    QDir::setSearchPaths(QStringLiteral("art"), {});
}

TEST(ImageFindings, OfANameWithAZeroCharacterAreSilent) {
    const QtMessages messages;
    const QString file = QStringLiteral(VELNOR_TEST_FONTS "/LiberationSans-Bold.ttf");
    EXPECT_NE(findingsOfImage(file + QChar(0)), "");
    EXPECT_EQ(messages.heard(), "");
}

TEST(ImageFindings, OfAMissingFileAreItsPath) {
    EXPECT_EQ(findingsOfImage(QStringLiteral("/no/such/logo.png")),
              "Image item id=logo: invalid filepath(/no/such/logo.png); ");
}

TEST(ImageFindings, OfAnEmptyPathAreAnEmptyPath) {
    EXPECT_EQ(findingsOfImage(QString()), "Image item id=logo: invalid filepath(); ");
}

class TextFindings : public FontFolders {
protected:
    TextFindings() { registerTextFonts(); }
};

TEST_F(TextFindings, OfAnEmptyTextAreNone) {
    const auto canvas = emptyCanvas();
    auto& text = addItem<VelnorDrawableText>(*canvas);
    text.bold = true;
    EXPECT_EQ(findingsOf(*canvas), "");
}

TEST_F(TextFindings, WithoutAFontAreThatAlone) {
    EXPECT_EQ(findingsOfText(QString(), true, true), "Text item id=t: null font; ");
}

TEST_F(TextFindings, InAFamilyWithAllStylesAreNone) {
    EXPECT_EQ(findingsOfText(textFamily(), true, true), "");
}

TEST_F(TextFindings, InAnUnknownFamilyAreThatAloneAndNameTheSubstitute) {
    const QString unknown = QStringLiteral("No Such Family");
    const std::string substitute = QFontInfo(QFont(unknown)).family().toStdString();
    EXPECT_EQ(findingsOfText(unknown, true, true),
              "Text item id=t: font not available(No Such Family) using default(" + substitute +
                  "); ");
}

TEST_F(TextFindings, InAFamilyWithRegularOnlyAreNoneForARegularText) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha)), "");
}

TEST_F(TextFindings, InAFamilyWithRegularOnlyAreBoldThenItalic) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    const std::string bold = "Text item id=t: bold not available(Alphafonts Sans); ";
    const std::string italic = "Text item id=t: italic not available(Alphafonts Sans); ";
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha), true, false), bold);
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha), false, true), italic);
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha), true, true), bold + italic);
}

TEST_F(TextFindings, InAFamilyWithBoldOnlyAreNoneForABoldText) {
    writeFont("a.ttf", fontOfBrand(Alpha, "Bold"));
    const auto owner = handler();
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha), true, false), "");
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha), false, true),
              "Text item id=t: italic not available(Alphafonts Sans); ");
}

TEST_F(TextFindings, EndWhenTheFontIsRegisteredAndComeBackWithoutIt) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    EXPECT_NE(findingsOfText(familyOfBrand(Alpha)), "");
    auto owner = handler();
    EXPECT_EQ(findingsOfText(familyOfBrand(Alpha)), "");
    owner.reset();
    EXPECT_NE(findingsOfText(familyOfBrand(Alpha)), "");
}

TEST(Findings, OfANullCanvasAreThat) {
    std::array<char, 30> buffer{};
    EXPECT_EQ(VelnorXml::CheckIsCorrect(nullptr, buffer.data(), buffer.size()), -1);
    EXPECT_STREQ(buffer.data(), "Canvas null pointer");
}

TEST(Findings, OfACanvasWithoutItemsAreNone) {
    EXPECT_EQ(findingsOf(*emptyCanvas()), "");
    EXPECT_EQ(findingsOf(VelnorDrawableCanvas()), "");
}

TEST(Findings, OfAnItemOfUnknownKindAreItsId) {
    for (const int kind : {-1, 0, 7, Lowest, Highest}) {
        const auto canvas = emptyCanvas();
        auto& item = addItem<VelnorDrawableElement>(*canvas);
        item.type = kind;
        item.id = QStringLiteral("x");
        EXPECT_EQ(findingsOf(*canvas), "invalid item id=x; ") << kind;
    }
}

TEST(Findings, OfAHiddenItemCountToo) {
    const auto canvas = emptyCanvas();
    addItem<VelnorDrawableEllipse>(*canvas).hidden = 1;
    EXPECT_EQ(findingsOf(*canvas), "Ellipse item id=: invalid thickness(0); ");
}

TEST(Findings, OfSeveralItemsComeInDocumentOrder) {
    const auto canvas = emptyCanvas();
    addItem<VelnorDrawableLine>(*canvas).thickness = 1;
    addItem<VelnorDrawableRectangle>(*canvas).thickness = 1;
    addItem<VelnorDrawableBarcode>(*canvas);
    addItem<VelnorDrawableEllipse>(*canvas);
    addItem<VelnorDrawableImage>(*canvas);
    EXPECT_EQ(findingsOf(*canvas), "Line item id=: invalid length(-1); "
                                   "Barcode item id=: null barcode; "
                                   "Ellipse item id=: invalid thickness(0); "
                                   "Image item id=: invalid filepath(); ");
}

} // namespace
