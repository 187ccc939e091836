#include "document/canvas_element.h"

#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <QDomDocument>

namespace {

struct ListRow : Row {
    QByteArray document;
    const char* name; // the "n" attribute of the list that is found, or "" where there is none
};

struct ClassRow : Row {
    QByteArray list;
    bool canvas;
};

class FirstItemList : public testing::TestWithParam<ListRow> {};
class Canvas : public testing::TestWithParam<ClassRow> {};

const ListRow Lists[] = {
    {"BelowTheRoot", "<VelnorRoot><VelnorItems n='1'/></VelnorRoot>", "1"},
    {"AtAnyDepth", "<VelnorRoot><a><b><VelnorItems n='1'/></b></a></VelnorRoot>", "1"},
    {"TheFirstOfTwo", "<VelnorRoot><VelnorItems n='1'/><VelnorItems n='2'/></VelnorRoot>", "1"},
    {"TheFirstInDocumentOrder",
     "<VelnorRoot><a><VelnorItems n='1'/></a><VelnorItems n='2'/></VelnorRoot>", "1"},
    {"TheOuterOfTwoThatAreNested",
     "<VelnorRoot><VelnorItems n='1'><VelnorItems n='2'/></VelnorItems></VelnorRoot>", "1"},
    {"OfAnyClassBeforeACanvas",
     "<VelnorRoot><VelnorItems n='1' class='list'/><VelnorItems n='2' class='canvas'/>"
     "</VelnorRoot>",
     "1"},
    {"OfAnyClass", "<VelnorRoot><VelnorItems n='1' class='page'/></VelnorRoot>", "1"},
    {"NoneBelowAnotherRoot", "<Root><VelnorItems n='1'/></Root>", ""},
    {"NoneBelowANestedRoot", "<Root><VelnorRoot><VelnorItems n='1'/></VelnorRoot></Root>", ""},
    {"NoneBelowARootInLowerCase", "<velnorroot><VelnorItems n='1'/></velnorroot>", ""},
    {"NoneAtTheRoot", "<VelnorItems n='1'/>", ""},
    {"NoneBelowAListAsTheRoot", "<VelnorItems n='1'><VelnorItems n='2'/></VelnorItems>", ""},
    {"NoneAmongItems", "<VelnorRoot><VelnorItem n='1'/></VelnorRoot>", ""},
    {"NoneOfAnotherCase", "<VelnorRoot><velnoritems n='1'/></VelnorRoot>", ""},
    {"NoneInAnEmptyRoot", "<VelnorRoot/>", ""},
};

const ClassRow Classes[] = {
    {"TheClassCanvas", "<VelnorItems class='canvas'/>", true},
    {"NoOtherClass", "<VelnorItems class='page'/>", false},
    {"NoCapitalLetter", "<VelnorItems class='Canvas'/>", false},
    {"NoBlanks", "<VelnorItems class=' canvas'/>", false},
    {"NoAttributeOfAnotherCase", "<VelnorItems Class='canvas'/>", false},
    {"NoEmptyClass", "<VelnorItems class=''/>", false},
    {"NoMissingClass", "<VelnorItems/>", false},
};

} // namespace

TEST_P(FirstItemList, IsFound) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(GetParam().document));
    const QDomElement list = velnor::firstItemList(document);
    EXPECT_EQ(list.isNull(), GetParam().name[0] == '\0');
    EXPECT_EQ(list.attribute(QStringLiteral("n")), QString::fromLatin1(GetParam().name));
}

TEST_P(Canvas, IsToldByItsClass) {
    QDomDocument document;
    ASSERT_TRUE(document.setContent(GetParam().list));
    EXPECT_EQ(velnor::isCanvas(document.documentElement()), GetParam().canvas);
}

INSTANTIATE_TEST_SUITE_P(CanvasElement, FirstItemList, testing::ValuesIn(Lists), RuleAsName());
INSTANTIATE_TEST_SUITE_P(CanvasElement, Canvas, testing::ValuesIn(Classes), RuleAsName());

TEST(CanvasElement, IsNotFoundInANullDocument) {
    EXPECT_TRUE(velnor::firstItemList(QDomDocument()).isNull());
}

TEST(CanvasElement, IsNoNullElement) {
    EXPECT_FALSE(velnor::isCanvas(QDomElement()));
}
