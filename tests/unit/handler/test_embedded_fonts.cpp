#include "handler/velnorxml.h"

#include "font_folders.h"
#include "support/font_files.h"
#include "support/peak_memory.h"
#include "support/printing.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QFontDatabase>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using EmbeddedFonts = FontFolders;

TEST_F(EmbeddedFonts, OfAFolderThatDoesNotExistAreNone) {
    const auto owner = handler();
    ASSERT_NE(VelnorXml::embeddedFontIdList, nullptr);
    EXPECT_THAT(listedNames(), IsEmpty());
}

TEST_F(EmbeddedFonts, AreTheFilesOfTheFolderBesideTheDocument) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
    EXPECT_TRUE(databaseHas(Alpha));
}

TEST_F(EmbeddedFonts, AreTheFilesOfTheFolderThatIsNamed) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    scratch.write(QStringLiteral("other/g.ttf"), fontOfBrand(Gamma));
    const auto owner = handlerOf("other");
    EXPECT_THAT(listedNames(), ElementsAre("g.ttf"));
    EXPECT_FALSE(databaseHas(Alpha));
    EXPECT_TRUE(databaseHas(Gamma));
}

TEST_F(EmbeddedFonts, OfANamedFolderThatDoesNotExistAreNone) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handlerOf("nowhere");
    EXPECT_THAT(listedNames(), IsEmpty());
}

TEST_F(EmbeddedFonts, OfAnEmptyFolderNameAreThoseBesideTheDocument) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const QByteArray path = scratch.utf8Path(QStringLiteral("layout.xml"));
    const VelnorXml owner(path.constData(), "", "");
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf"));
}

TEST_F(EmbeddedFonts, AreListedByNameWhateverTheCase) {
    for (const char* name : {"c.ttf", "B.ttf", "a.ttf", "D.ttf"}) {
        writeFont(name, fontOfBrand(Alpha));
    }
    const auto owner = handler();
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf", "B.ttf", "c.ttf", "D.ttf"));
}

TEST_F(EmbeddedFonts, AreRecordedWithNameIdentifierSizeAndMark) {
    const QByteArray content = fontOfBrand(Alpha);
    writeFont("a.ttf", content);
    const auto owner = handler();
    ASSERT_EQ(VelnorXml::embeddedFontIdList->size(), 1);
    const FontItem* font = VelnorXml::embeddedFontIdList->at(0);
    EXPECT_EQ(font->name, QStringLiteral("a.ttf"));
    EXPECT_EQ(font->size, content.size());
    EXPECT_EQ(font->present, 1);
    EXPECT_THAT(QFontDatabase::applicationFontFamilies(font->id),
                ElementsAre(familyOfBrand(Alpha)));
}

TEST_F(EmbeddedFonts, PassOverFilesThatAreNoFonts) {
    writeFont("a.txt", "not a font at all");
    writeFont("b.ttf", "");
    writeFont("c.ttf", QByteArray(5000, '\0'));
    writeFont("d.ttf", fontOfBrand(Alpha).left(200));
    writeFont("e.ttf", fontOfBrand(Gamma));
    const auto owner = handler();
    EXPECT_THAT(listedNames(), ElementsAre("e.ttf"));
}

TEST_F(EmbeddedFonts, PassOverFilesOfMoreThan128Mebibytes) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    QFile file(scratch.path(QStringLiteral("fonts/a.ttf")));
    ASSERT_TRUE(file.resize(128LL * 1024 * 1024 + 1));
    const auto owner = handler();
    EXPECT_THAT(listedNames(), IsEmpty());
}

TEST_F(EmbeddedFonts, PassOverSubfolders) {
    scratch.write(QStringLiteral("fonts/sub/a.ttf"), fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_FALSE(databaseHas(Alpha));
}

TEST_F(EmbeddedFonts, PassOverAFileInThePlaceOfTheFolder) {
    scratch.write(QStringLiteral("fonts"), fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_THAT(listedNames(), IsEmpty());
}

TEST_F(EmbeddedFonts, AreRegisteredAnewForEachHandler) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    const auto second = handler();
    EXPECT_THAT(listedNames(), ElementsAre("a.ttf", "a.ttf"));
    const auto& fonts = *VelnorXml::embeddedFontIdList;
    EXPECT_NE(fonts[0]->id, fonts[1]->id);
}

TEST_F(EmbeddedFonts, OfTheSameBytesAreInMemoryOnce) {
    constexpr int Handlers = 40;
    constexpr int Megabytes = 16;
    const QByteArray font = fontOfBrand(Alpha);
    writeFont("a.ttf", font + QByteArray(Megabytes * 1024 * 1024 - font.size(), '\0'));
    std::vector<std::unique_ptr<VelnorXml>> handlers;
    handlers.push_back(handler());
    const PeakMemory peak;
    while (handlers.size() < Handlers) {
        handlers.push_back(handler());
    }
    EXPECT_THAT(listedNames(), SizeIs(Handlers));
    // A sanitizer keeps what was freed for a while.
    EXPECT_LT(peak.risenMegabytes(), Handlers * Megabytes / 2);
}

TEST_F(EmbeddedFonts, AreAllUnregisteredWhenTheFirstHandlerIsFreed) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    auto first = handler();
    const auto second = handler();
    first.reset();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_FALSE(databaseHas(Alpha));
}

TEST_F(EmbeddedFonts, AreAllUnregisteredWhenTheLastHandlerIsFreed) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto first = handler();
    auto second = handler();
    second.reset();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_FALSE(databaseHas(Alpha));
}

TEST_F(EmbeddedFonts, OfOtherHandlersAreUnregisteredToo) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    handlerOf("nowhere").reset();
    EXPECT_THAT(listedNames(), IsEmpty());
    EXPECT_FALSE(databaseHas(Alpha));
}

TEST_F(EmbeddedFonts, AreFoundByTextsThatAskedForThemBefore) {
    EXPECT_NE(familyDrawnFor(Alpha), familyOfBrand(Alpha));
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha));
}

TEST_F(EmbeddedFonts, AreNoLongerFoundWhenTheyWereUnregistered) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    auto owner = handler();
    ASSERT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha));
    owner.reset();
    EXPECT_NE(familyDrawnFor(Alpha), familyOfBrand(Alpha));
}

TEST_F(EmbeddedFonts, CanBeRegisteredAgain) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    for (int i = 0; i < 3; ++i) {
        const auto owner = handler();
        EXPECT_EQ(familyDrawnFor(Alpha), familyOfBrand(Alpha)) << i;
    }
}

TEST_F(EmbeddedFonts, CanBeRemovedBeforeAnyHandlerExists) {
    QList<FontItem*>* const list = VelnorXml::embeddedFontIdList;
    VelnorXml::embeddedFontIdList = nullptr;
    VelnorXml::removeEmbeddedFonts();
    EXPECT_EQ(VelnorXml::embeddedFontIdList, nullptr);
    VelnorXml::embeddedFontIdList = list;
}

TEST_F(EmbeddedFonts, ThatHaveNoIdentifierAreOnlyForgotten) {
    const auto owner = handler();
    VelnorXml::embeddedFontIdList->append(new FontItem(QStringLiteral("x"), -1, 5));
    VelnorXml::removeEmbeddedFonts();
    EXPECT_THAT(listedNames(), IsEmpty());
}
