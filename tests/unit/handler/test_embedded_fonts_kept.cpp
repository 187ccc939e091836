// Fonts under the keep flag, which outlive their handlers.
#include "handler/velnorxml.h"

#include "font_folders.h"
#include "support/font_files.h"
#include "support/printing.h"

#include <gmock/gmock.h>

#include <QFontDatabase>

#include <set>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class KeptFonts : public FontFolders {
protected:
    KeptFonts() { VelnorXml::embeddedFontKeepFlag = true; }
};

TEST_F(KeptFonts, OutliveTheirHandler) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    handler().reset();
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_TRUE(databaseHas(Alpha));
}

TEST_F(KeptFonts, AreSharedByTheNextHandler) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const FontItem* font = VelnorXml::embeddedFontIdList->at(0);
    const int id = font->id;
    const auto second = handler();
    ASSERT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_EQ(VelnorXml::embeddedFontIdList->at(0), font);
    EXPECT_EQ(font->id, id);
    EXPECT_EQ(font->present, 1);
}

TEST_F(KeptFonts, AreSharedAcrossFoldersByNameAndSize) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    scratch.write(QStringLiteral("other/a.ttf"), fontOfBrand(Gamma));
    const auto first = handler();
    const auto second = handlerOf("other");
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_FALSE(databaseHas(Gamma));
}

TEST_F(KeptFonts, AreReplacedByAFileOfAnotherSize) {
    const QByteArray larger = fontOfBrand(Gamma) + "more";
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const int oldId = VelnorXml::embeddedFontIdList->at(0)->id;
    writeFont("a.ttf", larger);
    const auto second = handler();
    ASSERT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_EQ(VelnorXml::embeddedFontIdList->at(0)->size, larger.size());
    EXPECT_NE(VelnorXml::embeddedFontIdList->at(0)->id, oldId);
    EXPECT_TRUE(databaseHas(Gamma));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(oldId));
}

TEST_F(KeptFonts, AreForgottenButStayRegisteredWhenTheirFileIsGone) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const int id = VelnorXml::embeddedFontIdList->at(0)->id;
    removeFont("a.ttf");
    writeFont("g.ttf", fontOfBrand(Gamma));
    const auto second = handler();
    EXPECT_THAT(listedNames(), ElementsAre("g.ttf"));
    EXPECT_TRUE(databaseHas(Alpha));
    EXPECT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(id));
}

// A file that is being replaced is cut short for a moment, while texts are drawn with its font.
TEST_F(KeptFonts, AreDrawnWhileTheirFileIsCutShort) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    writeFont("g.ttf", fontOfBrand(Gamma)); // the same letters under another name
    const auto owner = handler();
    drawnText(Alpha, "A");
    writeFont("a.ttf", "");
    EXPECT_EQ(drawnText(Alpha, "BCDEFG"), drawnText(Gamma, "BCDEFG"));
}

TEST_F(KeptFonts, AreComparedWithTheCaseOfTheirNames) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const int id = VelnorXml::embeddedFontIdList->at(0)->id;
    removeFont("a.ttf");
    writeFont("A.ttf", fontOfBrand(Alpha));
    const auto second = handler();
    EXPECT_THAT(listedNames(), ElementsAre("A.ttf"));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(id));
}

TEST_F(KeptFonts, StayListedForAHandlerWithoutAFolder) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const auto second = handlerOf("nowhere");
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
}

TEST_F(KeptFonts, AreForgottenForAHandlerWithAnEmptyFolder) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    scratch.write(QStringLiteral("empty/sub/x"), "");
    const auto first = handler();
    const int id = VelnorXml::embeddedFontIdList->at(0)->id;
    const auto second = handlerOf("empty");
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_TRUE(databaseHas(Alpha));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(id));
}

TEST_F(KeptFonts, OfTheSameNameAndSizeAreReusedFromTheFirstRecord) {
    VelnorXml::embeddedFontKeepFlag = false;
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const auto second = handler();
    const int firstId = VelnorXml::embeddedFontIdList->at(0)->id;
    const int secondId = VelnorXml::embeddedFontIdList->at(1)->id;
    VelnorXml::embeddedFontKeepFlag = true;
    const auto third = handler();
    ASSERT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_EQ(VelnorXml::embeddedFontIdList->at(0)->id, firstId);
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(secondId));
}

TEST_F(KeptFonts, AreUnregisteredOnceTheFlagIsOff) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    handler().reset();
    VelnorXml::embeddedFontKeepFlag = false;
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
    handlerOf("nowhere").reset();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_FALSE(databaseHas(Alpha));
}

// Two folders whose fonts are kept in turn, each of which makes the library forget the other's.
TEST_F(KeptFonts, ThatWereForgottenStayRegisteredWhateverBecomesOfANewRecord) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    scratch.write(QStringLiteral("other/g.ttf"), fontOfBrand(Gamma));
    handler().reset();
    const int forgotten = VelnorXml::embeddedFontIdList->at(0)->id;
    handlerOf("other").reset();
    const int other = VelnorXml::embeddedFontIdList->at(0)->id;
    auto last = handler();
    ASSERT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_NE(VelnorXml::embeddedFontIdList->at(0)->id, forgotten);
    VelnorXml::embeddedFontKeepFlag = false;
    last.reset();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(forgotten));
    EXPECT_TRUE(QFontDatabase::removeApplicationFont(other));
}

TEST_F(KeptFonts, OfFoldersInTurnAreRegisteredTwiceAtMost) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    scratch.write(QStringLiteral("other/g.ttf"), fontOfBrand(Gamma));
    std::set<int> numbers;
    for (int i = 0; i < 10; ++i) {
        handler().reset();
        numbers.insert(VelnorXml::embeddedFontIdList->at(0)->id);
        handlerOf("other").reset();
        numbers.insert(VelnorXml::embeddedFontIdList->at(0)->id);
    }
    EXPECT_THAT(numbers, SizeIs(4));
    for (const int id : numbers) {
        EXPECT_TRUE(QFontDatabase::removeApplicationFont(id));
    }
}

// As when a Qt host ends its application, and makes another one.
TEST_F(KeptFonts, ThatTheHostHasRemovedAreRegisteredAnew) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    handler().reset();
    ASSERT_TRUE(QFontDatabase::removeAllApplicationFonts());
    const auto next = handler();
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha));
}
