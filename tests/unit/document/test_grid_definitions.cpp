#include "document/elements.h"
#include "handler/velnorxml.h"

#include "support/layouts.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <QDomDocument>

#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Lowest = std::numeric_limits<int>::min();

QByteArray row(const QByteArray& height) {
    return element("RowDefinition", element("height", height));
}

QByteArray column(const QByteArray& width) {
    return element("ColumnDefinition", element("width", width));
}

VelnorDrawableCanvas withRows(const QByteArray& rows, int height = -1) {
    VelnorDrawableCanvas canvas;
    canvas.height = height;
    QDomDocument document;
    document.setContent(element("RowDefinitions", rows));
    VelnorXml::parseRowDefinitions(document.documentElement(), &canvas);
    return canvas;
}

VelnorDrawableCanvas withColumns(const QByteArray& columns, int width = -1) {
    VelnorDrawableCanvas canvas;
    canvas.width = width;
    QDomDocument document;
    document.setContent(element("ColumnDefinitions", columns));
    VelnorXml::parseColumnDefinitions(document.documentElement(), &canvas);
    return canvas;
}

VelnorDrawableCanvas withFixedRows(const QByteArray& rows, int height = -1) {
    VelnorDrawableCanvas canvas = withRows(rows, height);
    EXPECT_EQ(VelnorXml::FixCanvasRow(&canvas), 0);
    return canvas;
}

VelnorDrawableCanvas withFixedColumns(const QByteArray& columns, int width = -1) {
    VelnorDrawableCanvas canvas = withColumns(columns, width);
    EXPECT_EQ(VelnorXml::FixCanvasColumn(&canvas), 0);
    return canvas;
}

// One field of all rows (or columns), in order.
std::vector<int> each(int VelnorRowColumn::*field,
                      const std::unique_ptr<VelnorRowColumn[]>& entries, int count) {
    std::vector<int> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(entries[static_cast<size_t>(i)].*field);
    }
    return values;
}

std::vector<int> eachRow(int VelnorRowColumn::*field, const VelnorDrawableCanvas& canvas) {
    return each(field, canvas.rows, canvas.rowCount);
}

std::vector<int> eachColumn(int VelnorRowColumn::*field, const VelnorDrawableCanvas& canvas) {
    return each(field, canvas.columns, canvas.columnCount);
}

struct SizeRow : Row {
    const char* text;
    int type;
    int size;
};

class SizeSyntax : public testing::TestWithParam<SizeRow> {};

const SizeRow Sizes[] = {
    {"AutoIsAutomatic", "Auto", 1, 0},
    {"AutoWithBlanksAroundIsAutomatic", " \n Auto\t", 1, 0},
    {"AutoInLowerCaseIsAbsoluteZero", "auto", 0, 0},
    {"AutoInCapitalsIsAbsoluteZero", "AUTO", 0, 0},
    {"AutoWithMoreBehindIsAbsoluteZero", "Auto1", 0, 0},
    {"ANumberWithAStarIsAWeight", "2*", 2, 2},
    {"AWeightWithBlanksAroundIsAWeight", "  12*  ", 2, 12},
    {"ALoneStarHasTheWeightZero", "*", 2, 0},
    {"TwoStarsHaveTheWeightZero", "**", 2, 0},
    {"AWordWithAStarHasTheWeightZero", "Auto*", 2, 0},
    {"AFractionWithAStarHasTheWeightZero", "1.5*", 2, 0},
    {"ANegativeWeightIsKept", "-3*", 2, -3},
    {"TheHighestWeightIsKept", "2147483647*", 2, Highest},
    {"AWeightAbove32BitsIsZero", "2147483648*", 2, 0},
    {"AStarInFrontIsAbsoluteZero", "*2", 0, 0},
    {"ANumberIsAbsolute", "120", 0, 120},
    {"ANumberWithBlanksAroundIsAbsolute", "\t120 \n", 0, 120},
    {"ANegativeNumberIsAbsolute", "-8", 0, -8},
    {"AFractionIsAbsoluteZero", "3.5", 0, 0},
    {"APerCentSizeIsAbsoluteZero", "50%", 0, 0},
    {"AUnitIsAbsoluteZero", "10mm", 0, 0},
    {"AnEmptyTextIsAbsoluteZero", "", 0, 0},
    {"TheHighestSizeIsKept", "2147483647", 0, Highest},
    {"TheLowestSizeIsKept", "-2147483648", 0, Lowest},
    {"ASizeAbove32BitsIsAbsoluteZero", "2147483648", 0, 0},
};

const QByteArray MixedRows = row("100") + row("Auto") + row("2*") + row("50");

} // namespace

TEST_P(SizeSyntax, OfARow) {
    const VelnorDrawableCanvas canvas = withRows(row(GetParam().text));
    ASSERT_EQ(canvas.rowCount, 1);
    EXPECT_EQ(canvas.rows[0].type, GetParam().type);
    EXPECT_EQ(canvas.rows[0].size, GetParam().size);
}

TEST_P(SizeSyntax, OfAColumn) {
    const VelnorDrawableCanvas canvas = withColumns(column(GetParam().text));
    ASSERT_EQ(canvas.columnCount, 1);
    EXPECT_EQ(canvas.columns[0].type, GetParam().type);
    EXPECT_EQ(canvas.columns[0].size, GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(GridDefinitions, SizeSyntax, testing::ValuesIn(Sizes), RuleAsName());

TEST(RowDefinitions, WithoutASizeElementAreAbsoluteZero) {
    const VelnorDrawableCanvas canvas =
        withRows("<RowDefinition/><RowDefinition><width>7</width></RowDefinition>");
    EXPECT_THAT(eachRow(&VelnorRowColumn::type, canvas), ElementsAre(0, 0));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(0, 0));
}

TEST(RowDefinitions, UseTheFirstSizeElement) {
    const VelnorDrawableCanvas canvas =
        withRows("<RowDefinition><height>4</height><height>9</height></RowDefinition>");
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(4));
}

TEST(RowDefinitions, FindTheSizeElementAtAnyDepth) {
    const VelnorDrawableCanvas canvas =
        withRows(element("RowDefinition", element("more", element("height", "6"))));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(6));
}

TEST(RowDefinitions, AreGatheredAtAnyDepthInDocumentOrder) {
    const VelnorDrawableCanvas canvas =
        withRows(row("1") + element("group", row("2") + element("group", row("3"))) + row("4"));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(1, 2, 3, 4));
}

TEST(RowDefinitions, InsideARowDefinitionAreRowsOfTheirOwnBehindIt) {
    const VelnorDrawableCanvas canvas =
        withRows(element("RowDefinition", row("2") + element("height", "1")));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(2, 2));
}

TEST(RowDefinitions, PassOverOtherElements) {
    const VelnorDrawableCanvas canvas =
        withRows(column("5") + "text<rowdefinition/><RowDefinitions/><!-- no row -->" + row("3"));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(3));
}

TEST(RowDefinitions, ReplaceEarlierRows) {
    VelnorDrawableCanvas canvas = withRows(row("1") + row("2"));
    QDomDocument document;
    document.setContent(element("RowDefinitions", row("9")));
    VelnorXml::parseRowDefinitions(document.documentElement(), &canvas);
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(9));
}

TEST(RowDefinitions, LeaveTheColumnsAlone) {
    const VelnorDrawableCanvas canvas = withRows(row("1"));
    EXPECT_EQ(canvas.columnCount, 0);
    EXPECT_EQ(canvas.columns, nullptr);
}

TEST(ColumnDefinitions, LeaveTheRowsAlone) {
    const VelnorDrawableCanvas canvas = withColumns(column("1"));
    EXPECT_EQ(canvas.rowCount, 0);
    EXPECT_EQ(canvas.rows, nullptr);
}

TEST(ColumnDefinitions, WithoutAWidthAreAbsoluteZero) {
    const VelnorDrawableCanvas canvas =
        withColumns("<ColumnDefinition><height>7</height></ColumnDefinition>");
    EXPECT_THAT(eachColumn(&VelnorRowColumn::type, canvas), ElementsAre(0));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::size, canvas), ElementsAre(0));
}

TEST(ColumnDefinitions, AreGatheredAtAnyDepthInDocumentOrder) {
    const VelnorDrawableCanvas canvas =
        withColumns(column("1") + element("group", column("2")) + row("8") + column("3"));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::size, canvas), ElementsAre(1, 2, 3));
}

TEST(FixCanvasRow, MakesOneRowOfTheCanvasHeightWhereNoneIsDefined) {
    VelnorDrawableCanvas canvas;
    canvas.height = 500;
    EXPECT_EQ(VelnorXml::FixCanvasRow(&canvas), 0);
    EXPECT_EQ(canvas.rowCount, 1);
    EXPECT_EQ(canvas.rows[0].type, 0);
    EXPECT_EQ(canvas.rows[0].size, 500);
    EXPECT_EQ(canvas.rows[0].offset, 0);
}

TEST(FixCanvasRow, MakesOneRowBehindAnEmptyDefinition) {
    VelnorDrawableCanvas canvas = withRows(QByteArray());
    EXPECT_EQ(canvas.rowCount, 0);
    VelnorXml::FixCanvasRow(&canvas);
    EXPECT_EQ(canvas.rowCount, 1);
    EXPECT_EQ(canvas.rows[0].type, 0);
    EXPECT_EQ(canvas.rows[0].size, -1);
}

TEST(FixCanvasRow, AddsUpTheRawSizes) {
    const VelnorDrawableCanvas canvas = withFixedRows(MixedRows, 400);
    EXPECT_THAT(eachRow(&VelnorRowColumn::type, canvas), ElementsAre(0, 1, 2, 0));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(100, 0, 2, 50));
    EXPECT_THAT(eachRow(&VelnorRowColumn::offset, canvas), ElementsAre(0, 100, 100, 102));
}

TEST(FixCanvasRow, MakesProportionalRowsAutomaticInACanvasWithoutAHeight) {
    const VelnorDrawableCanvas canvas = withFixedRows(MixedRows);
    EXPECT_THAT(eachRow(&VelnorRowColumn::type, canvas), ElementsAre(0, 1, 1, 0));
    EXPECT_THAT(eachRow(&VelnorRowColumn::size, canvas), ElementsAre(100, 0, 2, 50));
    EXPECT_THAT(eachRow(&VelnorRowColumn::offset, canvas), ElementsAre(0, 100, 100, 102));
}

TEST(FixCanvasRow, KeepsProportionalRowsForAnyHeightButMinusOne) {
    EXPECT_EQ(withFixedRows(row("1*"), 0).rows[0].type, 2);
    EXPECT_EQ(withFixedRows(row("1*"), -2).rows[0].type, 2);
}

TEST(FixCanvasRow, CanBeRunAgain) {
    VelnorDrawableCanvas canvas = withFixedRows(MixedRows, 400);
    VelnorXml::FixCanvasRow(&canvas);
    EXPECT_THAT(eachRow(&VelnorRowColumn::offset, canvas), ElementsAre(0, 100, 100, 102));
}

TEST(FixCanvasRow, SaturatesOffsetsPast32Bits) {
    const QByteArray highest = row("2147483647");
    const QByteArray lowest = row("-2147483648");
    EXPECT_THAT(eachRow(&VelnorRowColumn::offset, withFixedRows(highest.repeated(4))),
                ElementsAre(0, Highest, Highest, Highest));
    EXPECT_THAT(eachRow(&VelnorRowColumn::offset, withFixedRows(lowest.repeated(4))),
                ElementsAre(0, Lowest, Lowest, Lowest));
}

TEST(FixCanvasColumn, MakesOneColumnOfTheCanvasWidthWhereNoneIsDefined) {
    VelnorDrawableCanvas canvas;
    canvas.width = 576;
    EXPECT_EQ(VelnorXml::FixCanvasColumn(&canvas), 0);
    EXPECT_EQ(canvas.columnCount, 1);
    EXPECT_EQ(canvas.columns[0].type, 0);
    EXPECT_EQ(canvas.columns[0].size, 576);
    EXPECT_EQ(canvas.columns[0].offset, 0);
}

TEST(FixCanvasColumn, MakesOneColumnOfSizeMinusOneInACanvasWithoutAWidth) {
    const VelnorDrawableCanvas canvas = withFixedColumns(QByteArray());
    EXPECT_THAT(eachColumn(&VelnorRowColumn::type, canvas), ElementsAre(0));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::size, canvas), ElementsAre(-1));
}

TEST(FixCanvasColumn, KeepsProportionalColumnsInACanvasWithoutAWidth) {
    const VelnorDrawableCanvas canvas = withFixedColumns(column("Auto") + column("1*").repeated(2));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::type, canvas), ElementsAre(1, 2, 2));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::size, canvas), ElementsAre(0, 1, 1));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::offset, canvas), ElementsAre(0, 0, 1));
}

TEST(FixCanvasColumn, SaturatesOffsetsPast32Bits) {
    const VelnorDrawableCanvas canvas = withFixedColumns(column("2147483647").repeated(3));
    EXPECT_THAT(eachColumn(&VelnorRowColumn::offset, canvas), ElementsAre(0, Highest, Highest));
}

TEST(GridDefinitions, TakeThousandsOfRows) {
    const VelnorDrawableCanvas canvas = withFixedRows(row("3").repeated(20000));
    ASSERT_EQ(canvas.rowCount, 20000);
    EXPECT_EQ(canvas.rows[19999].offset, 59997);
}

TEST(GridDefinitions, TakeThousandsOfColumns) {
    const VelnorDrawableCanvas canvas = withFixedColumns(column("1*").repeated(20000), 576);
    ASSERT_EQ(canvas.columnCount, 20000);
    EXPECT_EQ(canvas.columns[19999].type, 2);
    EXPECT_EQ(canvas.columns[19999].offset, 19999);
}
