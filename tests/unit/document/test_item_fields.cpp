#include "document/item_fields.h"

#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <limits>

namespace {

using Element = VelnorDrawableElement;
using Image = VelnorDrawableImage;
using Text = VelnorDrawableText;
using Barcode = VelnorDrawableBarcode;
using Rectangle = VelnorDrawableRectangle;
using Ellipse = VelnorDrawableEllipse;
using Line = VelnorDrawableLine;

constexpr int NoOption = 0x5A5A5A5A;

// Reads a member of an item as the record of its kind.
template <typename Record, auto Member>
int number(const Element& item) {
    return static_cast<int>(static_cast<const Record&>(item).*Member);
}

template <typename Record, QString Record::*Member>
QString text(const Element& item) {
    return static_cast<const Record&>(item).*Member;
}

struct ClassRow : Row {
    const char* name;
    int kind;
};

struct NumberRow : Row {
    const char* kind;
    const char* element;
    int (*read)(const Element& item);
    int absent;
    int notANumber;
};

struct ValueRow : Row {
    const char* kind;
    const char* fields;
    int (*read)(const Element& item);
    int value;
};

struct TextRow : Row {
    const char* kind;
    const char* element;
    QString (*read)(const Element& item);
};

class ItemClass : public testing::TestWithParam<ClassRow> {};
class UnknownClass : public testing::TestWithParam<ClassRow> {};
class NumberField : public testing::TestWithParam<NumberRow> {};
class FieldValue : public testing::TestWithParam<ValueRow> {};
class TextField : public testing::TestWithParam<TextRow> {};

const ClassRow Classes[] = {
    {"Image", "image", 1},         {"Text", "text", 2},       {"Barcode", "barcode", 3},
    {"Rectangle", "rectangle", 4}, {"Ellipse", "ellipse", 5}, {"Line", "line", 6},
};

const ClassRow UnknownClasses[] = {
    {"ACapitalLetter", "Text", 0}, {"AnEmptyName", "", 0},        {"TheCanvas", "canvas", 0},
    {"ABlankInFront", " text", 0}, {"ALongerName", "textbox", 0}, {"AnotherWord", "circle", 0},
};

const NumberRow Numbers[] = {
    {"ImageRotation", "image", "rotation", number<Image, &Image::rotation>, -1, -361},
    {"ImageScalex", "image", "scalex", number<Image, &Image::scalex>, 100, -1},
    {"ImageScaley", "image", "scaley", number<Image, &Image::scaley>, 100, -1},
    {"ImageAspect", "image", "aspect", number<Image, &Image::aspect>, 0, 0},
    {"TextRotation", "text", "rotation", number<Text, &Text::rotation>, -1, -361},
    {"TextFlags", "text", "flags", number<Text, &Text::flags>, 0, -1},
    {"TextFontsize", "text", "fontsize", number<Text, &Text::fontsize>, 0, -1},
    {"BarcodeType", "barcode", "type", number<Barcode, &Barcode::barcodeType>, -1, 0},
    {"BarcodeHrt", "barcode", "hrt", number<Barcode, &Barcode::hrt>, 0, -1},
    {"BarcodeOption1", "barcode", "option1", number<Barcode, &Barcode::option1>, NoOption,
     NoOption},
    {"BarcodeOption2", "barcode", "option2", number<Barcode, &Barcode::option2>, NoOption,
     NoOption},
    {"BarcodeOption3", "barcode", "option3", number<Barcode, &Barcode::option3>, NoOption,
     NoOption},
    {"BarcodeRotation", "barcode", "rotation", number<Barcode, &Barcode::rotation>, -1, -361},
    {"RectangleRotation", "rectangle", "rotation", number<Rectangle, &Rectangle::rotation>, -1,
     -361},
    {"RectangleThickness", "rectangle", "thickness", number<Rectangle, &Rectangle::thickness>, 0,
     0},
    {"RectangleStyle", "rectangle", "style", number<Rectangle, &Rectangle::style>, 0, 0},
    {"RectangleRadius", "rectangle", "radius", number<Rectangle, &Rectangle::radius>, 0, 0},
    {"EllipseRotation", "ellipse", "rotation", number<Ellipse, &Ellipse::rotation>, -1, -361},
    {"EllipseThickness", "ellipse", "thickness", number<Ellipse, &Ellipse::thickness>, 0, 0},
    {"EllipseStyle", "ellipse", "style", number<Ellipse, &Ellipse::style>, 0, 0},
    {"LineRotation", "line", "rotation", number<Line, &Line::rotation>, -1, -361},
    {"LineThickness", "line", "thickness", number<Line, &Line::thickness>, 0, 0},
    {"LineStyle", "line", "style", number<Line, &Line::style>, 0, 0},
    {"LineLength", "line", "length", number<Line, &Line::length>, -1, -1},
};

const ValueRow Values[] = {
    {"BoldOfANumberIsOn", "text", "<bold>2</bold>", number<Text, &Text::bold>, 1},
    {"BoldOfZeroIsOff", "text", "<bold>1</bold><bold>0</bold>", number<Text, &Text::bold>, 0},
    {"BoldOfAWordIsOff", "text", "<bold>yes</bold>", number<Text, &Text::bold>, 0},
    {"BoldOfAnEmptyTextIsOff", "text", "<bold/>", number<Text, &Text::bold>, 0},
    {"ItalicOfANegativeNumberIsOn", "text", "<italic>-1</italic>", number<Text, &Text::italic>, 1},
    {"ItalicOfZeroIsOff", "text", "<italic>0</italic>", number<Text, &Text::italic>, 0},
    {"ItalicOfAWordIsOff", "text", "<italic>true</italic>", number<Text, &Text::italic>, 0},
    {"AntialiasOfANumberIsOn", "text", "<antialias>1</antialias>", number<Text, &Text::antialias>,
     1},
    {"AntialiasOfZeroIsOff", "text", "<antialias>0</antialias>", number<Text, &Text::antialias>, 0},
    {"AntialiasOfAWordIsOn", "text", "<antialias>yes</antialias>", number<Text, &Text::antialias>,
     1},
    {"AntialiasOfAnEmptyTextIsOn", "text", "<antialias/>", number<Text, &Text::antialias>, 1},
    {"InputmodeZeroStays", "barcode", "<inputmode>0</inputmode>",
     number<Barcode, &Barcode::inputmode>, 0},
    {"InputmodeTwoStays", "barcode", "<inputmode>2</inputmode>",
     number<Barcode, &Barcode::inputmode>, 2},
    {"InputmodeThreeIsOne", "barcode", "<inputmode>3</inputmode>",
     number<Barcode, &Barcode::inputmode>, 1},
    {"InputmodeMinusOneIsOne", "barcode", "<inputmode>-1</inputmode>",
     number<Barcode, &Barcode::inputmode>, 1},
    {"InputmodeOfAWordIsOne", "barcode", "<inputmode>2</inputmode><inputmode>x</inputmode>",
     number<Barcode, &Barcode::inputmode>, 1},
    {"TheLaterOfTwoNumbersWins", "line", "<length>5</length><length>6</length>",
     number<Line, &Line::length>, 6},
    {"ALaterWordWinsOverANumber", "line", "<length>5</length><length>x</length>",
     number<Line, &Line::length>, -1},
    {"ANumberMayHaveBlanksAround", "line", "<length> 5 </length>", number<Line, &Line::length>, 5},
    {"ANumberMayStandInACharacterDataSection", "line", "<length><![CDATA[5]]></length>",
     number<Line, &Line::length>, 5},
    {"ANumberMayBeSplitByAComment", "line", "<length>1<!-- and -->2</length>",
     number<Line, &Line::length>, 12},
    {"NamesAreCaseSensitive", "line", "<Length>5</Length>", number<Line, &Line::length>, -1},
    {"AFieldInsideAnotherElementIsIgnored", "line", "<group><length>5</length></group>",
     number<Line, &Line::length>, -1},
    {"AFieldOfAnotherKindIsIgnored", "line", "<radius>5</radius>", number<Line, &Line::style>, 0},
    {"AnAttributeIsNoField", "line", "<length length=\"5\"/>", number<Line, &Line::length>, -1},
};

const TextRow Texts[] = {
    {"TextText", "text", "text", text<Text, &Text::text>},
    {"TextFontname", "text", "fontname", text<Text, &Text::fontname>},
    {"BarcodeText", "barcode", "text", text<Barcode, &Barcode::text>},
    {"BarcodePrimary", "barcode", "primary", text<Barcode, &Barcode::primary>},
};

// The canvas of the item has three rows and two columns.
std::unique_ptr<VelnorDrawableCanvas> canvasOf(const QByteArray& kind, const QByteArray& fields) {
    return parsedCanvas("<RowDefinitions>" + QByteArray("<RowDefinition/>").repeated(3) +
                        "</RowDefinitions>" + "<ColumnDefinitions>" +
                        QByteArray("<ColumnDefinition/>").repeated(2) + "</ColumnDefinitions>" +
                        itemElement(kind, fields));
}

int read(int (*reader)(const Element&), const char* kind, const QByteArray& fields) {
    const auto canvas = canvasOf(kind, fields);
    return reader(*canvas->items->at(0));
}

} // namespace

TEST_P(ItemClass, MakesARecordOfItsKind) {
    const auto item = velnor::makeItem(QString::fromLatin1(GetParam().name));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->type, GetParam().kind);
}

TEST_P(UnknownClass, MakesNoRecord) {
    EXPECT_EQ(velnor::makeItem(QString::fromLatin1(GetParam().name)), nullptr);
}

TEST_P(NumberField, IsSetFromANumber) {
    const auto& row = GetParam();
    EXPECT_EQ(read(row.read, row.kind, element(row.element, "45")), 45);
    EXPECT_EQ(read(row.read, row.kind, element(row.element, "-1000")), -1000);
}

TEST_P(NumberField, TakesTheEndsOf32Bits) {
    const auto& row = GetParam();
    EXPECT_EQ(read(row.read, row.kind, element(row.element, "2147483647")),
              std::numeric_limits<int>::max());
    EXPECT_EQ(read(row.read, row.kind, element(row.element, "-2147483648")),
              std::numeric_limits<int>::min());
}

TEST_P(NumberField, ThatIsAbsentKeepsTheDefault) {
    const auto& row = GetParam();
    EXPECT_EQ(read(row.read, row.kind, ""), row.absent);
}

TEST_P(NumberField, ThatIsNotANumberGetsItsFallback) {
    const auto& row = GetParam();
    for (const char* text : {"abc", "", "1.5", "2147483648", "-2147483649"}) {
        EXPECT_EQ(read(row.read, row.kind, element(row.element, text)), row.notANumber) << text;
    }
}

TEST_P(FieldValue, FollowsItsRule) {
    const auto& row = GetParam();
    EXPECT_EQ(read(row.read, row.kind, row.fields), row.value);
}

TEST_P(TextField, IsTheElementsTextUntrimmed) {
    const auto& row = GetParam();
    const auto canvas = canvasOf(row.kind, element(row.element, "  a \n b\t"));
    EXPECT_EQ(row.read(*canvas->items->at(0)), QStringLiteral("  a \n b\t"));
}

TEST_P(TextField, ResolvesEscapesAndCharacterData) {
    const auto& row = GetParam();
    const auto canvas =
        canvasOf(row.kind, element(row.element, "&lt;&amp;<![CDATA[<&]]>\xE2\x82\xAC&#233;"));
    EXPECT_EQ(row.read(*canvas->items->at(0)), QString::fromUtf8("<&<&\xE2\x82\xAC\xC3\xA9"));
}

TEST_P(TextField, JoinsTheTextOfItsElements) {
    const auto& row = GetParam();
    const auto canvas = canvasOf(row.kind, element(row.element, "a<b>c</b>d"));
    EXPECT_EQ(row.read(*canvas->items->at(0)), QStringLiteral("acd"));
}

TEST_P(TextField, OfAnEmptyElementIsEmpty) {
    const auto& row = GetParam();
    const auto canvas = canvasOf(row.kind, element(row.element, "x") + element(row.element, ""));
    EXPECT_TRUE(row.read(*canvas->items->at(0)).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(ItemFields, ItemClass, testing::ValuesIn(Classes), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ItemFields, UnknownClass, testing::ValuesIn(UnknownClasses), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ItemFields, NumberField, testing::ValuesIn(Numbers), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ItemFields, FieldValue, testing::ValuesIn(Values), RuleAsName());
INSTANTIATE_TEST_SUITE_P(ItemFields, TextField, testing::ValuesIn(Texts), RuleAsName());

TEST(ItemFields, ResolveTheFilePathOfAnImage) {
    Layout layout(canvasDocument(itemElement("image", element("filepath", "sub\\logo.png"))));
    const auto canvas = layout.parse();
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(onlyItem<Image>(*canvas).filepath,
              layout.folder().path(QStringLiteral("sub/logo.png")));
}

TEST(ItemFields, LeaveTheFilePathOfAnImageEmptyWhereItIsAbsent) {
    EXPECT_EQ(onlyItem<Image>(*canvasOf("image", "")).filepath, QString());
}

TEST(ItemFields, KeepASentinelForEveryBarcodeOptionThatIsAbsent) {
    const auto canvas = canvasOf("barcode", "<option2>4</option2>");
    const auto& barcode = onlyItem<Barcode>(*canvas);
    EXPECT_EQ(barcode.option1, NoOption);
    EXPECT_EQ(barcode.option2, 4);
    EXPECT_EQ(barcode.option3, NoOption);
}

TEST(ItemFields, OfAnElementThatTheKindDoesNotKnowChangeNothing) {
    const auto canvas = canvasOf("line", "text<nothing>5</nothing><!-- x --><?y z?><text>t</text>");
    const auto& line = onlyItem<Line>(*canvas);
    EXPECT_EQ(line.length, -1);
    EXPECT_EQ(line.thickness, 0);
    EXPECT_EQ(line.x, 0);
}
