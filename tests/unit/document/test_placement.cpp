#include "document/elements.h"
#include "handler/velnorxml.h"

#include "support/layouts.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <QDomDocument>

#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

// Hands the element <name>text</name> to the record and answers what the routine answers.
bool place(VelnorDrawableElement& record, const QByteArray& name, const QByteArray& text) {
    QDomDocument document;
    document.setContent(element(name, text));
    return VelnorXml::parseCommonTagNam(&record, document.documentElement());
}

struct OffsetRow : Row {
    const char* name;
    int VelnorDrawableElement::*field;
    int notANumber;
};

struct AnchorRow : Row {
    const char* text;
    int bits; // with the fallback 77
};

struct MarginRow : Row {
    const char* text;
};

struct SpanRow : Row {
    int first;
    int span;
    int count;
    int fixedSpan;
};

class CommonElement : public testing::TestWithParam<OffsetRow> {};
class OtherElement : public testing::TestWithParam<MarginRow> {};
class HorizontalAnchor : public testing::TestWithParam<AnchorRow> {};
class VerticalAnchor : public testing::TestWithParam<AnchorRow> {};
class RefusedMargin : public testing::TestWithParam<MarginRow> {};
class Span : public testing::TestWithParam<SpanRow> {};

const OffsetRow CommonElements[] = {
    {"X", "x", &VelnorDrawableElement::x, 0},
    {"Y", "y", &VelnorDrawableElement::y, 0},
    {"Xr", "xr", &VelnorDrawableElement::xr, 0},
    {"Yb", "yb", &VelnorDrawableElement::yb, 0},
    {"Width", "width", &VelnorDrawableElement::width, -1},
    {"Height", "height", &VelnorDrawableElement::height, -1},
};

const MarginRow OtherNames[] = {
    {"AnotherName", "anchor"},     {"ACapitalLetter", "X"},
    {"ACapitalisedName", "Width"}, {"TheNameOfAMarginInCapitals", "MARGIN"},
    {"ALongerName", "xrb"},
};

const AnchorRow HorizontalTexts[] = {
    {"Left", "left", 4},
    {"Right", "right", 8},
    {"Center", "center", 12},
    {"RightInAnyCaseWithBlanksAround", " \tRiGhT\n ", 8},
    {"CenterInCapitals", "CENTER", 12},
    {"AnUnknownWordIsTheFallback", "middle", 77},
    {"AVerticalWordIsTheFallback", "top", 77},
    {"BritishSpellingIsTheFallback", "centre", 77},
    {"AnEmptyTextIsTheFallback", "", 77},
    {"AFractionIsTheFallback", "4.0", 77},
    {"ThirteenKeepsBitsTwoAndThree", "13", 12},
    {"FiveKeepsBitTwo", "5", 4},
    {"ThreeKeepsNothing", "3", 0},
    {"ZeroKeepsNothing", "0", 0},
    {"MinusOneKeepsBothBits", "-1", 12},
    {"TheHighestNumberKeepsBothBits", "2147483647", 12},
    {"TheLowestNumberKeepsNothing", "-2147483648", 0},
    {"ANumberAbove32BitsIsTheFallback", "2147483648", 77},
};

const AnchorRow VerticalTexts[] = {
    {"Top", "top", 1},
    {"Bottom", "bottom", 2},
    {"Center", "center", 3},
    {"CenterInCapitals", "CENTER", 3},
    {"BottomInAnyCaseWithBlanksAround", " \tBottoM\n ", 2},
    {"AnUnknownWordIsTheFallback", "middle", 77},
    {"AHorizontalWordIsTheFallback", "left", 77},
    {"AnEmptyTextIsTheFallback", "", 77},
    {"SixKeepsBitOne", "6", 2},
    {"FiveKeepsBitZero", "5", 1},
    {"TwelveKeepsNothing", "12", 0},
    {"MinusOneKeepsBothBits", "-1", 3},
    {"TheLowestNumberKeepsNothing", "-2147483648", 0},
    {"ANumberAbove32BitsIsTheFallback", "2147483648", 77},
};

const MarginRow RefusedMargins[] = {
    {"AnEmptyText", ""},
    {"OneNumber", "5"},
    {"TwoNumbers", "1,2"},
    {"ThreeNumbers", "1,2,3"},
    {"FiveNumbers", "1,2,3,4,5"},
    {"ATrailingComma", "1,2,3,4,"},
    {"AnEmptyPart", "1,,3,4"},
    {"AWordAmongTheNumbers", "1,2,x,4"},
    {"AWordAtTheEnd", "1,2,3,x"},
    {"AFraction", "1,2,3,4.5"},
    {"Semicolons", "1;2;3;4"},
    {"Blanks", "1 2 3 4"},
    {"ANumberAbove32Bits", "1,2,3,2147483648"},
};

const SpanRow Spans[] = {
    {"PastTheEndBecomesOne", 2, 5, 4, 1},
    {"UpToTheEndStays", 2, 2, 4, 2},
    {"OnePastTheEndBecomesOne", 2, 3, 4, 1},
    {"ZeroBecomesOne", 2, 0, 4, 1},
    {"NegativeBecomesOne", 2, -1, 4, 1},
    {"TheLowestNumberBecomesOne", 2, Lowest, 4, 1},
    {"TheHighestNumberBecomesOne", 0, Highest, 4, 1},
    {"TheHighestNumberInTheLastPlaceBecomesOne", 3, Highest, 4, 1},
    {"TheHighestNumberAtTheHighestPlaceBecomesOne", Highest, Highest, 4, 1},
    {"AllOfTheGridStays", 0, 4, 4, 4},
    {"OfOneStaysPastTheEnd", 9, 1, 4, 1},
    {"FromBeforeTheGridStaysWhileItEndsInside", -2, 6, 4, 6},
    {"FromBeforeTheGridBecomesOneWhenItEndsOutside", -2, 7, 4, 1},
    {"FromFarBeforeTheGridStaysWhileItEndsBefore", Lowest, Highest, 4, Highest},
};

} // namespace

TEST_P(CommonElement, SetsItsFieldFromANumber) {
    VelnorDrawableElement record;
    EXPECT_TRUE(place(record, GetParam().name, "-120"));
    EXPECT_EQ(record.*GetParam().field, -120);
}

TEST_P(CommonElement, ThatIsNotANumberSetsTheFallback) {
    VelnorDrawableElement record;
    record.*GetParam().field = 33;
    EXPECT_TRUE(place(record, GetParam().name, "auto"));
    EXPECT_EQ(record.*GetParam().field, GetParam().notANumber);
}

TEST_P(CommonElement, TakesTheEndsOf32Bits) {
    VelnorDrawableElement record;
    place(record, GetParam().name, "2147483647");
    EXPECT_EQ(record.*GetParam().field, Highest);
    place(record, GetParam().name, "-2147483648");
    EXPECT_EQ(record.*GetParam().field, Lowest);
    place(record, GetParam().name, "2147483648");
    EXPECT_EQ(record.*GetParam().field, GetParam().notANumber);
}

TEST_P(OtherElement, IsNotTaken) {
    VelnorDrawableElement record;
    EXPECT_FALSE(place(record, GetParam().text, "1,2,3,4"));
    EXPECT_EQ(record.x, 0);
    EXPECT_EQ(record.width, -1);
}

TEST(OtherElement, ThatIsNullIsNotTaken) {
    VelnorDrawableElement record;
    EXPECT_FALSE(VelnorXml::parseCommonTagNam(&record, QDomElement()));
}

TEST_P(HorizontalAnchor, IsReadFromTheText) {
    EXPECT_EQ(VelnorXml::GetHAnchorValue(QString::fromLatin1(GetParam().text), 77),
              GetParam().bits);
}

TEST_P(VerticalAnchor, IsReadFromTheText) {
    EXPECT_EQ(VelnorXml::GetVAnchorValue(QString::fromLatin1(GetParam().text), 77),
              GetParam().bits);
}

TEST(Margin, SetsLeftTopRightAndBottomInThisOrder) {
    VelnorDrawableElement record;
    EXPECT_TRUE(place(record, "margin", "10,20,30,40"));
    EXPECT_EQ(record.x, 10);
    EXPECT_EQ(record.y, 20);
    EXPECT_EQ(record.xr, 30);
    EXPECT_EQ(record.yb, 40);
}

TEST(Margin, StoresTheFourNumbers) {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    EXPECT_TRUE(VelnorXml::parseMargin(QStringLiteral("-1,2147483647,-2147483648,0"), &left, &top,
                                       &right, &bottom));
    EXPECT_EQ(left, -1);
    EXPECT_EQ(top, Highest);
    EXPECT_EQ(right, Lowest);
    EXPECT_EQ(bottom, 0);
}

TEST_P(RefusedMargin, ChangesNothing) {
    int numbers[] = {11, 12, 13, 14};
    EXPECT_FALSE(VelnorXml::parseMargin(QString::fromLatin1(GetParam().text), &numbers[0],
                                        &numbers[1], &numbers[2], &numbers[3]));
    EXPECT_THAT(numbers, testing::ElementsAre(11, 12, 13, 14));
}

TEST_P(RefusedMargin, IsTakenAsACommonElementAllTheSame) {
    VelnorDrawableElement record;
    record.x = 11;
    record.yb = 14;
    EXPECT_TRUE(place(record, "margin", GetParam().text));
    EXPECT_EQ(record.x, 11);
    EXPECT_EQ(record.y, 0);
    EXPECT_EQ(record.xr, 0);
    EXPECT_EQ(record.yb, 14);
}

TEST(Margin, OfAMillionCommasIsRefused) {
    VelnorDrawableElement record;
    EXPECT_TRUE(place(record, "margin", QByteArray("1,").repeated(500000)));
    EXPECT_EQ(record.x, 0);
}

TEST_P(Span, OfRowsIsBroughtIntoTheGrid) {
    VelnorDrawableCanvas canvas;
    canvas.rowCount = GetParam().count;
    canvas.columnCount = 1;
    VelnorDrawableText item;
    item.row = GetParam().first;
    item.rowspan = GetParam().span;
    VelnorXml::FixDrawableFields(&item, &canvas);
    EXPECT_EQ(item.rowspan, GetParam().fixedSpan);
    EXPECT_EQ(item.row, GetParam().first);
}

TEST_P(Span, OfColumnsIsBroughtIntoTheGrid) {
    VelnorDrawableCanvas canvas;
    canvas.rowCount = 1;
    canvas.columnCount = GetParam().count;
    VelnorDrawableText item;
    item.column = GetParam().first;
    item.columnspan = GetParam().span;
    VelnorXml::FixDrawableFields(&item, &canvas);
    EXPECT_EQ(item.columnspan, GetParam().fixedSpan);
    EXPECT_EQ(item.column, GetParam().first);
}

INSTANTIATE_TEST_SUITE_P(Placement, CommonElement, testing::ValuesIn(CommonElements), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Placement, OtherElement, testing::ValuesIn(OtherNames), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Placement, HorizontalAnchor, testing::ValuesIn(HorizontalTexts),
                         RuleAsName());
INSTANTIATE_TEST_SUITE_P(Placement, VerticalAnchor, testing::ValuesIn(VerticalTexts), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Placement, RefusedMargin, testing::ValuesIn(RefusedMargins), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Placement, Span, testing::ValuesIn(Spans), RuleAsName());
