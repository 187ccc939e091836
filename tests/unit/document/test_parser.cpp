#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

using testing::ElementsAre;

struct DocumentRow : Row {
    QByteArray document;
};

struct CanvasRow : Row {
    const char* children;
    int (*read)(const VelnorDrawableCanvas& canvas);
    int value;
};

template <auto Member>
int field(const VelnorDrawableCanvas& canvas) {
    return canvas.*Member;
}

class FailedParse : public testing::TestWithParam<DocumentRow> {};
class ParseWithoutACanvas : public testing::TestWithParam<DocumentRow> {};
class CanvasChildren : public testing::TestWithParam<CanvasRow> {};

const QByteArray EmptyCanvas = "<VelnorItems class=\"canvas\"/>";

const DocumentRow FailedDocuments[] = {
    {"AnEmptyFile", ""},
    {"BrokenXml", "<VelnorRoot><VelnorItems class=\"canvas\"></VelnorRoot>"},
    {"NoXmlAtAll", "a layout"},
    {"AnotherRoot", "<Layout>" + EmptyCanvas + "</Layout>"},
    {"ARootInLowerCase", "<velnorroot>" + EmptyCanvas + "</velnorroot>"},
    {"ARootWithAPrefix", "<v:VelnorRoot>" + EmptyCanvas + "</v:VelnorRoot>"},
    {"ItemsAsTheRoot", EmptyCanvas},
    {"ARootWithoutItems", "<VelnorRoot/>"},
    {"ItemsInLowerCase", "<VelnorRoot><velnoritems class=\"canvas\"/></VelnorRoot>"},
    {"ItemsInAComment", "<VelnorRoot><!--" + EmptyCanvas + "--></VelnorRoot>"},
    {"AnAmpersandInAText", canvasDocument(itemElement("text", "<text>a & b</text>"))},
};

const DocumentRow CanvaslessDocuments[] = {
    {"AnotherClass", "<VelnorRoot><VelnorItems class=\"page\"/></VelnorRoot>"},
    {"NoClass", "<VelnorRoot><VelnorItems/></VelnorRoot>"},
    {"AnEmptyClass", "<VelnorRoot><VelnorItems class=\"\"/></VelnorRoot>"},
    {"ACapitalLetter", "<VelnorRoot><VelnorItems class=\"Canvas\"/></VelnorRoot>"},
    {"OnlyTheFirstItemsCount",
     "<VelnorRoot><VelnorItems class=\"page\"/>" + EmptyCanvas + "</VelnorRoot>"},
};

const CanvasRow CanvasRows[] = {
    {"X", "<x>1</x>", field<&VelnorDrawableCanvas::x>, 1},
    {"Y", "<y>2</y>", field<&VelnorDrawableCanvas::y>, 2},
    {"Xr", "<xr>3</xr>", field<&VelnorDrawableCanvas::xr>, 3},
    {"Yb", "<yb>4</yb>", field<&VelnorDrawableCanvas::yb>, 4},
    {"Width", "<width>576</width>", field<&VelnorDrawableCanvas::width>, 576},
    {"WidthOfAWordIsMinusOne", "<width>wide</width>", field<&VelnorDrawableCanvas::width>, -1},
    {"Height", "<height>906</height>", field<&VelnorDrawableCanvas::height>, 906},
    {"MarginSetsTheBottom", "<margin>1,2,3,4</margin>", field<&VelnorDrawableCanvas::yb>, 4},
    {"MarginSetsTheLeft", "<margin>1,2,3,4</margin>", field<&VelnorDrawableCanvas::x>, 1},
    {"Dpi", "<dpi>203</dpi>", field<&VelnorDrawableCanvas::dpi>, 203},
    {"DpiOfAWordIs96", "<dpi>203</dpi><dpi>abc</dpi>", field<&VelnorDrawableCanvas::dpi>, 96},
    {"DpiIs96WhereItIsAbsent", "", field<&VelnorDrawableCanvas::dpi>, 96},
    {"DpiIsNotLimited", "<dpi>-2147483648</dpi>", field<&VelnorDrawableCanvas::dpi>,
     std::numeric_limits<int>::min()},
    {"AntialiasTextZero", "<antialiasText>0</antialiasText>",
     field<&VelnorDrawableCanvas::antialiasText>, 0},
    {"AntialiasTextOne", "<antialiasText>1</antialiasText>",
     field<&VelnorDrawableCanvas::antialiasText>, 1},
    {"AntialiasTextThreeIsTwo", "<antialiasText>3</antialiasText>",
     field<&VelnorDrawableCanvas::antialiasText>, 2},
    {"AntialiasTextMinusOneIsTwo", "<antialiasText>-1</antialiasText>",
     field<&VelnorDrawableCanvas::antialiasText>, 2},
    {"AntialiasTextOfAWordIsTwo",
     "<antialiasText>0</antialiasText><antialiasText>x</antialiasText>",
     field<&VelnorDrawableCanvas::antialiasText>, 2},
    {"AntialiasShapeTwo", "<antialiasShape>2</antialiasShape>",
     field<&VelnorDrawableCanvas::antialiasShape>, 2},
    {"AntialiasShapeFiveIsZero", "<antialiasShape>5</antialiasShape>",
     field<&VelnorDrawableCanvas::antialiasShape>, 0},
    {"AntialiasShapeMinusOneIsZero", "<antialiasShape>-1</antialiasShape>",
     field<&VelnorDrawableCanvas::antialiasShape>, 0},
    {"AntialiasShapeOfAWordIsZero",
     "<antialiasShape>1</antialiasShape><antialiasShape>x</antialiasShape>",
     field<&VelnorDrawableCanvas::antialiasShape>, 0},
    {"TheLaterOfTwoWins", "<dpi>203</dpi><dpi>300</dpi>", field<&VelnorDrawableCanvas::dpi>, 300},
    {"NamesAreCaseSensitive", "<DPI>203</DPI>", field<&VelnorDrawableCanvas::dpi>, 96},
    {"OnlyDirectChildrenCount", "<more><dpi>203</dpi></more>", field<&VelnorDrawableCanvas::dpi>,
     96},
    {"ChildrenOfItemsDoNotCount", "<VelnorItem class=\"text\"><width>8</width></VelnorItem>",
     field<&VelnorDrawableCanvas::width>, -1},
    {"AnchorsHaveNoMeaning", "<anchor>10</anchor>", field<&VelnorDrawableCanvas::anchor>, 5},
    {"RowDefinitions", "<RowDefinitions><RowDefinition/><RowDefinition/></RowDefinitions>",
     field<&VelnorDrawableCanvas::rowCount>, 2},
    {"ColumnDefinitions",
     "<ColumnDefinitions><ColumnDefinition/><ColumnDefinition/></ColumnDefinitions>",
     field<&VelnorDrawableCanvas::columnCount>, 2},
    {"TheSecondRowDefinitionsReplaceTheFirst",
     "<RowDefinitions><RowDefinition/><RowDefinition/></RowDefinitions>"
     "<RowDefinitions><RowDefinition/><RowDefinition/><RowDefinition/></RowDefinitions>",
     field<&VelnorDrawableCanvas::rowCount>, 3},
    {"EmptyRowDefinitionsReplaceTheFirstByOneRow",
     "<RowDefinitions><RowDefinition/><RowDefinition/></RowDefinitions><RowDefinitions/>",
     field<&VelnorDrawableCanvas::rowCount>, 1},
};

std::vector<std::string> itemIds(const VelnorDrawableCanvas& canvas) {
    std::vector<std::string> ids;
    for (const auto& item : *canvas.items) {
        ids.push_back(item->id.toStdString());
    }
    return ids;
}

} // namespace

TEST_P(FailedParse, AnswersOneAndMakesNoCanvas) {
    Layout layout(GetParam().document);
    VelnorDrawableCanvas before;
    VelnorDrawableCanvas* canvas = &before;
    EXPECT_EQ(layout.handler().Parse(&canvas), 1);
    EXPECT_EQ(canvas, nullptr);
}

TEST_P(ParseWithoutACanvas, AnswersZero) {
    Layout layout(GetParam().document);
    VelnorDrawableCanvas before;
    VelnorDrawableCanvas* canvas = &before;
    EXPECT_EQ(layout.handler().Parse(&canvas), 0);
    EXPECT_EQ(canvas, nullptr);
}

TEST_P(CanvasChildren, FollowTheirRule) {
    const auto canvas = parsedCanvas(GetParam().children);
    EXPECT_EQ(GetParam().read(*canvas), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Parser, FailedParse, testing::ValuesIn(FailedDocuments), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Parser, ParseWithoutACanvas, testing::ValuesIn(CanvaslessDocuments),
                         RuleAsName());
INSTANTIATE_TEST_SUITE_P(Parser, CanvasChildren, testing::ValuesIn(CanvasRows), RuleAsName());

TEST(Parser, FailsWithoutAPlaceForTheCanvas) {
    Layout layout(canvasDocument(""));
    EXPECT_EQ(layout.handler().Parse(nullptr), 1);
}

TEST(Parser, FailsForAMissingDocument) {
    Layout layout(canvasDocument(""));
    layout.remove();
    EXPECT_EQ(layout.parseResult(), 1);
}

TEST(Parser, GivesAnEmptyCanvasOneRowAndOneColumn) {
    const auto canvas = parsedCanvas("");
    ASSERT_NE(canvas->items, nullptr);
    EXPECT_TRUE(canvas->items->empty());
    ASSERT_EQ(canvas->rowCount, 1);
    EXPECT_EQ(canvas->rows[0].type, 0);
    EXPECT_EQ(canvas->rows[0].size, -1);
    ASSERT_EQ(canvas->columnCount, 1);
    EXPECT_EQ(canvas->columns[0].type, 0);
    EXPECT_EQ(canvas->columns[0].size, -1);
}

TEST(Parser, FindsTheCanvasAtAnyDepthBelowTheRoot) {
    Layout layout("<VelnorRoot><a><b>" + EmptyCanvas + "</b></a></VelnorRoot>");
    EXPECT_NE(layout.parse(), nullptr);
}

TEST(Parser, ReadsOnlyTheFirstCanvas) {
    Layout layout("<VelnorRoot><VelnorItems class=\"canvas\">" + itemElement("line", {}, "a") +
                  "</VelnorItems><VelnorItems class=\"canvas\">" + itemElement("line", {}, "b") +
                  "</VelnorItems>" + itemElement("line", {}, "c") + "</VelnorRoot>");
    EXPECT_THAT(itemIds(*layout.parse()), ElementsAre("a"));
}

TEST(Parser, ReadsTheItemsInDocumentOrder) {
    const auto canvas =
        parsedCanvas(itemElement("line", {}, "1") + itemElement("image", {}, "2") +
                     itemElement("ellipse", {}, "3") + itemElement("text", {}, "4") +
                     itemElement("rectangle", {}, "5") + itemElement("barcode", {}, "6"));
    std::vector<int> kinds;
    for (const auto& item : *canvas->items) {
        kinds.push_back(item->type);
    }
    EXPECT_THAT(kinds, ElementsAre(6, 1, 5, 2, 4, 3));
    EXPECT_THAT(itemIds(*canvas), ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST(Parser, SkipsItemsOfUnknownClasses) {
    const auto canvas =
        parsedCanvas(itemElement("Text", {}, "1") + itemElement("", {}, "2") +
                     "<VelnorItem id=\"3\"/>" + itemElement("canvas", {}, "4") +
                     "<velnoritem class=\"text\" id=\"5\"/>" + itemElement("text", {}, "6"));
    EXPECT_THAT(itemIds(*canvas), ElementsAre("6"));
}

TEST(Parser, ReadsANestedItemBehindItsParent) {
    const auto canvas = parsedCanvas(
        itemElement("text", "<x>1</x>" + itemElement("line", "<x>2</x>", "inner") + "<y>3</y>",
                    "outer") +
        itemElement("line", {}, "next"));
    EXPECT_THAT(itemIds(*canvas), ElementsAre("outer", "inner", "next"));
    EXPECT_EQ(canvas->items->at(0)->x, 1);
    EXPECT_EQ(canvas->items->at(0)->y, 3);
    EXPECT_EQ(canvas->items->at(1)->x, 2);
}

TEST(Parser, ReadsItemsInsideUnknownElementsAndSkippedItems) {
    const auto canvas = parsedCanvas(element("group", itemElement("line", {}, "1")) +
                                     itemElement("group", itemElement("line", {}, "2"), "0"));
    EXPECT_THAT(itemIds(*canvas), ElementsAre("1", "2"));
}

TEST(Parser, LeavesTheIdEmptyWhereItIsAbsent) {
    const auto canvas = parsedCanvas("<VelnorItem class=\"text\"/>");
    EXPECT_EQ(canvas->items->at(0)->id, QString());
}

TEST(Parser, ReadsTheGridBeforeTheItemsThatStandInFrontOfIt) {
    const auto canvas =
        parsedCanvas(itemElement("text", "<row>2</row>") +
                     element("RowDefinitions", QByteArray("<RowDefinition/>").repeated(3)));
    EXPECT_EQ(canvas->items->at(0)->row, 2);
}

TEST(Parser, TakesTheCanvasSizeForTheGridWhereverItStands) {
    const auto canvas = parsedCanvas("<RowDefinitions/><height>500</height><width>8</width>");
    EXPECT_EQ(canvas->rows[0].size, 500);
    EXPECT_EQ(canvas->columns[0].size, 8);
}
