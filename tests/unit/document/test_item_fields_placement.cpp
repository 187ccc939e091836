// The placement elements that items of every kind understand.
#include "document/item_fields.h"

#include "support/layouts.h"
#include "support/rows.h"

#include <QDomDocument>

#include <limits>
#include <tuple>

namespace {

using Element = VelnorDrawableElement;

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

struct FieldRow : Row {
    const char* fields;
    int Element::*member;
    int value;
};

// An item of every kind for every row.
class EveryKind : public testing::TestWithParam<std::tuple<const char*, FieldRow>> {};

struct KindAndRule {
    std::string operator()(const testing::TestParamInfo<EveryKind::ParamType>& info) const {
        return std::string(std::get<0>(info.param)) + '_' + std::get<1>(info.param).rule;
    }
};

const char* const Kinds[] = {"image", "text", "barcode", "rectangle", "ellipse", "line"};

// The canvas has three rows and two columns.
const FieldRow Fields[] = {
    {"X", "<x>7</x>", &Element::x, 7},
    {"XOfAWordIsZero", "<x>7</x><x>auto</x>", &Element::x, 0},
    {"Y", "<y>-7</y>", &Element::y, -7},
    {"Xr", "<xr>7</xr>", &Element::xr, 7},
    {"Yb", "<yb>7</yb>", &Element::yb, 7},
    {"Width", "<width>7</width>", &Element::width, 7},
    {"WidthOfAWordIsMinusOne", "<width>7</width><width>auto</width>", &Element::width, -1},
    {"Height", "<height>7</height>", &Element::height, 7},
    {"HeightOfAWordIsMinusOne", "<height>7</height><height>auto</height>", &Element::height, -1},
    {"MarginSetsTheRightOffset", "<margin>1,2,3,4</margin>", &Element::xr, 3},
    {"AMarginOfThreeNumbersChangesNothing", "<x>7</x><margin>1,2,3</margin>", &Element::x, 7},
    {"AnXBehindAMarginWins", "<margin>1,2,3,4</margin><x>9</x>", &Element::x, 9},
    {"AnchorSetsTheWholeCode", "<anchor>10</anchor>", &Element::anchor, 10},
    {"AnchorIsNotMasked", "<anchor>255</anchor>", &Element::anchor, 255},
    {"AnchorTakesNoKeyword", "<anchor>center</anchor>", &Element::anchor, 0},
    {"AnchorIsTopLeftWhereItIsAbsent", "", &Element::anchor, 5},
    {"VanchorKeepsTheHorizontalBits", "<vanchor>bottom</vanchor>", &Element::anchor, 6},
    {"VanchorTakesANumber", "<vanchor>6</vanchor>", &Element::anchor, 6},
    {"VanchorOfAnUnknownWordClearsItsBits", "<vanchor>middle</vanchor>", &Element::anchor, 4},
    {"VanchorCenterInCapitals", "<vanchor>CENTER</vanchor>", &Element::anchor, 7},
    {"HanchorKeepsTheVerticalBits", "<hanchor> Right </hanchor>", &Element::anchor, 9},
    {"HanchorTakesANumber", "<hanchor>13</hanchor>", &Element::anchor, 13},
    {"HanchorOfAnUnknownWordClearsItsBits", "<hanchor>middle</hanchor>", &Element::anchor, 1},
    {"BothAnchorsRefineEachTheirGroup", "<vanchor>center</vanchor><hanchor>center</hanchor>",
     &Element::anchor, 15},
    {"HanchorBehindAnAnchorRefinesIt", "<anchor>6</anchor><hanchor>right</hanchor>",
     &Element::anchor, 10},
    {"AnAnchorBehindAHanchorReplacesIt", "<hanchor>right</hanchor><anchor>6</anchor>",
     &Element::anchor, 6},
    {"TheLaterVanchorWins", "<vanchor>center</vanchor><vanchor>top</vanchor>", &Element::anchor, 5},
    {"Column", "<column>1</column>", &Element::column, 1},
    {"AColumnPastTheEndIsZero", "<column>1</column><column>2</column>", &Element::column, 0},
    {"ANegativeColumnStays", "<column>-3</column>", &Element::column, -3},
    {"TheLowestColumnStays", "<column>-2147483648</column>", &Element::column, Lowest},
    {"ColumnOfAWordIsZero", "<column>1</column><column>x</column>", &Element::column, 0},
    {"Row", "<row>2</row>", &Element::row, 2},
    {"ARowPastTheEndIsZero", "<row>7</row>", &Element::row, 0},
    {"TheHighestRowIsZero", "<row>2147483647</row>", &Element::row, 0},
    {"ANegativeRowStays", "<row>-2</row>", &Element::row, -2},
    {"RowOfAWordIsZero", "<row>2</row><row>x</row>", &Element::row, 0},
    {"Rowspan", "<row>1</row><rowspan>2</rowspan>", &Element::rowspan, 2},
    {"RowspanBeforeItsRow", "<rowspan>2</rowspan><row>1</row>", &Element::rowspan, 2},
    {"ARowspanPastTheEndIsOne", "<row>1</row><rowspan>3</rowspan>", &Element::rowspan, 1},
    {"RowspanZeroIsOne", "<rowspan>0</rowspan>", &Element::rowspan, 1},
    {"ANegativeRowspanIsOne", "<rowspan>-1</rowspan>", &Element::rowspan, 1},
    {"RowspanOfAWordIsOne", "<rowspan>2</rowspan><rowspan>x</rowspan>", &Element::rowspan, 1},
    {"AHugeRowspanIsOne", "<rowspan>2147483647</rowspan>", &Element::rowspan, 1},
    {"AHugeRowspanFromFarBeforeTheGridStays", "<row>-2147483648</row><rowspan>2147483647</rowspan>",
     &Element::rowspan, Highest},
    {"Columnspan", "<columnspan>2</columnspan>", &Element::columnspan, 2},
    {"AColumnspanPastTheEndIsOne", "<column>1</column><columnspan>2</columnspan>",
     &Element::columnspan, 1},
    {"ColumnspanOfAWordIsOne", "<columnspan>2</columnspan><columnspan>x</columnspan>",
     &Element::columnspan, 1},
    {"AHugeColumnspanIsOne", "<columnspan>2147483647</columnspan>", &Element::columnspan, 1},
    {"Hidden", "<hidden>1</hidden>", &Element::hidden, 1},
    {"HiddenKeepsOtherNumbers", "<hidden>-2</hidden>", &Element::hidden, -2},
    {"HiddenOfAWordIsZero", "<hidden>1</hidden><hidden>yes</hidden>", &Element::hidden, 0},
};

VelnorDrawableCanvas threeByTwo() {
    VelnorDrawableCanvas canvas;
    canvas.rowCount = 3;
    canvas.columnCount = 2;
    return canvas;
}

} // namespace

// What the parser does with one item: its children in order, then its spans.
TEST_P(EveryKind, UnderstandsThePlacementElements) {
    const auto& [kind, row] = GetParam();
    const VelnorXml handler(nullptr, nullptr, nullptr);
    const VelnorDrawableCanvas canvas = threeByTwo();
    QDomDocument document;
    ASSERT_TRUE(document.setContent(element("VelnorItem", row.fields)));
    const auto item = velnor::makeItem(QString::fromLatin1(kind));
    ASSERT_NE(item, nullptr);
    const QDomElement itemElement = document.documentElement();
    for (QDomElement child = itemElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        velnor::applyItemField(*item, canvas, child, handler);
    }
    VelnorXml::FixDrawableFields(item.get(), &canvas);
    EXPECT_EQ(item.get()->*row.member, row.value);
}

INSTANTIATE_TEST_SUITE_P(ItemFields, EveryKind,
                         testing::Combine(testing::ValuesIn(Kinds), testing::ValuesIn(Fields)),
                         KindAndRule());
