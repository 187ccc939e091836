// What a layout tells the printer besides the picture.
#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <array>
#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

using Settings = std::array<int, 3>; // presentation, eject or retract, time-out
constexpr Settings NothingGiven = {-1, -1, -1};

Settings settingsOf(VelnorXml& handler) {
    Settings settings = {77, 77, 77};
    EXPECT_EQ(handler.GetPrinterSettings(&settings[0], &settings[1], &settings[2]), 0);
    return settings;
}

// The settings of a document whose canvas holds `children`.
Settings settingsIn(const QByteArray& children) {
    Layout layout(canvasDocument(children));
    return settingsOf(layout.handler());
}

struct NumberRow : Row {
    QByteArray text;
    int number;
};

const NumberRow Numbers[] = {
    {{"ANumber"}, "3", 3},
    {{"Zero"}, "0", 0},
    {{"ANegativeNumber"}, "-3", -3},
    {{"ANumberWithASign"}, "+3", 3},
    {{"ANumberBetweenBlanks"}, " 20\n", 20},
    {{"LeadingZeros"}, "007", 7},
    {{"TheHighestNumber"}, "2147483647", Highest},
    {{"TheLowestNumber"}, "-2147483648", Lowest},
    {{"ANumberBeyond32Bits"}, "2147483648", -1},
    {{"ANumberWithAUnit"}, "20s", -1},
    {{"AFraction"}, "2.5", -1},
    {{"AHexadecimalNumber"}, "0x10", -1},
    {{"AWord"}, "three", -1},
    {{"AnEmptyText"}, "", -1},
    {{"MixedContent"}, "3<b/>", -1},
    {{"AnEntity"}, "&#51;", 3},
    {{"CharacterData"}, "<![CDATA[3]]>", 3},
};

class PrinterNumbers : public testing::TestWithParam<NumberRow> {};

TEST_P(PrinterNumbers, AreReadAsThePresentation) {
    const Settings expected = {GetParam().number, -1, -1};
    EXPECT_EQ(settingsIn(element("presentation", GetParam().text)), expected);
}

TEST_P(PrinterNumbers, AreReadAsTheTimeOut) {
    const Settings expected = {-1, -1, GetParam().number};
    EXPECT_EQ(settingsIn(element("ejectRetractTimeout", GetParam().text)), expected);
}

INSTANTIATE_TEST_SUITE_P(PrinterSettings, PrinterNumbers, testing::ValuesIn(Numbers), RuleAsName());

struct WordRow : Row {
    QByteArray text;
    int code;
};

const WordRow Words[] = {
    {{"Eject"}, "eject", 0},
    {{"EjectInCapitals"}, "EJECT", 0},
    {{"EjectBetweenBlanks"}, " \t\nEject\n ", 0},
    {{"Retract"}, "retract", 1},
    {{"RetractInCapitals"}, "RETRACT", 1},
    {{"RetractBetweenBlanks"}, "  Retract ", 1},
    {{"ALongerWord"}, "ejected", -1},
    {{"AShorterWord"}, "ejec", -1},
    {{"BothWords"}, "eject retract", -1},
    {{"ABlankInside"}, "re tract", -1},
    {{"AnotherWord"}, "present", -1},
    {{"ANumber"}, "0", -1},
    {{"AnEmptyText"}, "", -1},
    {{"MixedContent"}, "eject<b/>", -1},
};

class PrinterWords : public testing::TestWithParam<WordRow> {};

TEST_P(PrinterWords, AreReadAsEjectOrRetract) {
    const Settings expected = {-1, GetParam().code, -1};
    EXPECT_EQ(settingsIn(element("ejectRetract", GetParam().text)), expected);
}

INSTANTIATE_TEST_SUITE_P(PrinterSettings, PrinterWords, testing::ValuesIn(Words), RuleAsName());

struct NothingRow : Row {
    QByteArray document;
};

QByteArray withSettings(const QByteArray& start, const QByteArray& end) {
    return start +
           "<presentation>3</presentation><ejectRetract>eject</ejectRetract>"
           "<ejectRetractTimeout>20</ejectRetractTimeout>" +
           end;
}

const NothingRow Nothing[] = {
    {{"AnEmptyDocument"}, ""},
    {{"AMalformedDocument"},
     withSettings("<VelnorRoot><VelnorItems class='canvas' id='T1'>", "</VelnorItems>")},
    {{"AnotherRoot"},
     withSettings("<Velnor><VelnorItems class='canvas' id='T1'>", "</VelnorItems></Velnor>")},
    {{"NoItemList"}, withSettings("<VelnorRoot id='T1'>", "</VelnorRoot>")},
    {{"AnItemListOfAnotherClass"},
     withSettings("<VelnorRoot><VelnorItems class='Canvas' id='T1'>",
                  "</VelnorItems></VelnorRoot>")},
    {{"ACanvasWithoutAnId"},
     withSettings("<VelnorRoot><VelnorItems class='canvas'>", "</VelnorItems></VelnorRoot>")},
    {{"ACanvasWithAnEmptyId"},
     withSettings("<VelnorRoot><VelnorItems class='canvas' id=''>", "</VelnorItems></VelnorRoot>")},
    {{"ACanvasWithAPointInItsId"},
     withSettings("<VelnorRoot><VelnorItems class='canvas' id='T.1'>",
                  "</VelnorItems></VelnorRoot>")},
    {{"ACanvasWithAnIdOutsideAscii"},
     withSettings("<VelnorRoot><VelnorItems class='canvas' id='\xC3\xB6'>",
                  "</VelnorItems></VelnorRoot>")},
    {{"ACanvasWithoutTheElements"},
     "<VelnorRoot><VelnorItems class='canvas' id='T1'/></VelnorRoot>"},
    {{"ElementsInOtherLetters"},
     "<VelnorRoot><VelnorItems class='canvas' id='T1'><Presentation>3</Presentation>"
     "<ejectretract>eject</ejectretract></VelnorItems></VelnorRoot>"},
    {{"ElementsNamedByALink"},
     "<VelnorRoot><VelnorItems class='canvas' id='T1'><p link='presentation'>3</p>"
     "</VelnorItems></VelnorRoot>"},
};

class NoPrinterSettings : public testing::TestWithParam<NothingRow> {};

TEST_P(NoPrinterSettings, AreAllMinusOne) {
    Layout layout(GetParam().document);
    EXPECT_EQ(settingsOf(layout.handler()), NothingGiven);
}

INSTANTIATE_TEST_SUITE_P(PrinterSettings, NoPrinterSettings, testing::ValuesIn(Nothing),
                         RuleAsName());

constexpr char AllSettings[] = "<presentation>3</presentation>"
                               "<ejectRetract> Retract </ejectRetract>"
                               "<ejectRetractTimeout>20</ejectRetractTimeout>";

void setAll(VelnorXml& handler) {
    handler.SetObjectTagDictionary("page.presentation", "3", false, false);
    handler.SetObjectTagDictionary("page.ejectRetract", " Retract ", false, false);
    handler.SetObjectTagDictionary("page.ejectRetractTimeout", "20", false, false);
}

TEST(PrinterSettings, AreReadFromTheElementsOfTheCanvas) {
    EXPECT_EQ(settingsIn(AllSettings), (Settings{3, 1, 20}));
}

TEST(PrinterSettings, AreReadFromObjectTagsAlone) {
    Layout layout(canvasDocument(""));
    setAll(layout.handler());
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{3, 1, 20}));
}

TEST(PrinterSettings, OfObjectTagsOverrideTheDocument) {
    Layout layout(canvasDocument("<presentation>9</presentation><ejectRetract>eject</ejectRetract>"
                                 "<ejectRetractTimeout>9</ejectRetractTimeout>"));
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{9, 0, 9}));
    setAll(layout.handler());
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{3, 1, 20}));
}

TEST(PrinterSettings, OfTheDocumentComeBackWhenTheDictionariesAreCleared) {
    Layout layout(canvasDocument(AllSettings));
    layout.handler().SetObjectTagDictionary("page.presentation", "9", false, false);
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{9, 1, 20}));
    layout.handler().ClearAllDictionary();
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{3, 1, 20}));
}

TEST(PrinterSettings, HoldPlaceholders) {
    Layout layout(canvasDocument("<presentation>%p%</presentation>"));
    EXPECT_EQ(settingsOf(layout.handler()), NothingGiven);
    layout.handler().SetTagDictionary("p", "4");
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{4, -1, -1}));
}

TEST(PrinterSettings, AreTheFirstElementsOfTheirNameAtAnyDepth) {
    EXPECT_EQ(settingsIn(itemElement("text", "<presentation>5</presentation>") +
                         "<presentation>6</presentation><presentation>7</presentation>"),
              (Settings{5, -1, -1}));
}

TEST(PrinterSettings, OfALaterCanvasDoNotCount) {
    Layout layout("<VelnorRoot><VelnorItems class='canvas' id='a'/>"
                  "<VelnorItems class='canvas' id='b'><presentation>5</presentation>"
                  "</VelnorItems></VelnorRoot>");
    EXPECT_EQ(settingsOf(layout.handler()), NothingGiven);
}

TEST(PrinterSettings, OfAMissingDocumentAreMinusOne) {
    Layout layout(canvasDocument(AllSettings));
    layout.remove();
    EXPECT_EQ(settingsOf(layout.handler()), NothingGiven);
}

TEST(PrinterSettings, AreReadFromTheFirst1023BytesOfAValue) {
    const QByteArray blanks(1022, ' ');
    EXPECT_EQ(settingsIn(element("presentation", blanks + "12")), (Settings{1, -1, -1}));
    EXPECT_EQ(settingsIn(element("presentation", blanks.mid(1) + "12")), (Settings{12, -1, -1}));
}

TEST(PrinterSettings, OfACanvasWithALongIdAreReadAllTheSame) {
    Layout layout("<VelnorRoot><VelnorItems class='canvas' id='" + QByteArray(5000, 'x') + "'>" +
                  AllSettings + "</VelnorItems></VelnorRoot>");
    EXPECT_EQ(settingsOf(layout.handler()), (Settings{3, 1, 20}));
}

struct ClassIdRow : Row {
    QByteArray document;
    QString id; // null where none can be told
};

const ClassIdRow ClassIds[] = {
    {{"OfACanvasIsItsId"},
     "<VelnorRoot><VelnorItems class='canvas' id='T1'/></VelnorRoot>",
     QStringLiteral("T1")},
    {{"OutsideAsciiIsKept"},
     "<VelnorRoot><VelnorItems class='canvas' id='\xE2\x82\xAC'/></VelnorRoot>",
     QString::fromUtf8("\xE2\x82\xAC")},
    {{"IsThatOfTheFirstList"},
     "<VelnorRoot><VelnorItems class='canvas' id='a'/><VelnorItems class='canvas' id='b'/>"
     "</VelnorRoot>",
     QStringLiteral("a")},
    {{"IsFoundAtAnyDepth"},
     "<VelnorRoot><g><VelnorItems class='canvas' id='a'/></g></VelnorRoot>",
     QStringLiteral("a")},
    {{"OfACanvasWithoutAnIdIsEmpty"},
     "<VelnorRoot><VelnorItems class='canvas'/></VelnorRoot>",
     QStringLiteral("")},
    {{"OfAnotherClassIsEmpty"},
     "<VelnorRoot><VelnorItems class='list' id='a'/></VelnorRoot>",
     QStringLiteral("")},
    {{"OfACapitalClassIsEmpty"},
     "<VelnorRoot><VelnorItems class='CANVAS' id='a'/></VelnorRoot>",
     QStringLiteral("")},
    {{"WithoutAClassIsEmpty"},
     "<VelnorRoot><VelnorItems id='a'/></VelnorRoot>",
     QStringLiteral("")},
    {{"OfAFirstListOfAnotherClassIsEmpty"},
     "<VelnorRoot><VelnorItems class='x' id='a'/><VelnorItems class='canvas' id='b'/>"
     "</VelnorRoot>",
     QStringLiteral("")},
    {{"WithoutAListIsNull"}, "<VelnorRoot id='a'/>", QString()},
    {{"WithAnotherRootIsNull"}, "<Root><VelnorItems class='canvas' id='a'/></Root>", QString()},
    {{"OfMalformedXmlIsNull"}, "<VelnorRoot><VelnorItems class='canvas' id='a'>", QString()},
    {{"OfAnEmptyDocumentIsNull"}, "", QString()},
};

class ClassId : public testing::TestWithParam<ClassIdRow> {};

TEST_P(ClassId, IsThis) {
    Layout layout(GetParam().document);
    const QString id = layout.handler().GetClassId();
    EXPECT_EQ(id, GetParam().id);
    EXPECT_EQ(id.isNull(), GetParam().id.isNull());
}

INSTANTIATE_TEST_SUITE_P(PrinterSettings, ClassId, testing::ValuesIn(ClassIds), RuleAsName());

TEST(ClassIds, OfAMissingDocumentIsNull) {
    Layout layout(canvasDocument(""));
    layout.remove();
    EXPECT_TRUE(layout.handler().GetClassId().isNull());
}

TEST(ClassIds, HoldsPlaceholders) {
    Layout layout("<VelnorRoot><VelnorItems class='canvas' id='%a%'/></VelnorRoot>");
    layout.handler().SetTagDictionary("a", "T1");
    EXPECT_EQ(layout.handler().GetClassId(), QStringLiteral("T1"));
}

} // namespace
