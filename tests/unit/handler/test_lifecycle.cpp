#include "handler/velnorxml.h"
#include "velnorxmltoimg.h"

#include "support/font_files.h"
#include "support/layouts.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// Puts the process-wide font list and flag back.
class Lifecycle : public testing::Test {
protected:
    ~Lifecycle() override {
        VelnorXml::embeddedFontKeepFlag = false;
        VelnorXml::removeEmbeddedFonts();
    }
};

struct FreeHandler {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};

using OwnedHandler = std::unique_ptr<void, FreeHandler>;

} // namespace

TEST_F(Lifecycle, KeepsTheThreePaths) {
    const VelnorXml handler("/srv/t.xml", "/data/images", "/data/fonts");
    EXPECT_EQ(handler.documentFile(), QStringLiteral("/srv/t.xml"));
    EXPECT_EQ(handler.imageDir(), QStringLiteral("/data/images"));
    EXPECT_EQ(handler.fontDir(), QStringLiteral("/data/fonts"));
}

TEST_F(Lifecycle, DecodesThePathsAsUtf8) {
    const VelnorXml handler("\xC3\xA9.xml", "\xD1\x84", "\xE2\x82\xAC");
    EXPECT_EQ(handler.documentFile(), QString::fromUtf8("\xC3\xA9.xml"));
    EXPECT_EQ(handler.imageDir(), QString(QChar(0x444)));
    EXPECT_EQ(handler.fontDir(), QString(QChar(0x20AC)));
}

TEST_F(Lifecycle, TakesNullPathsAsEmpty) {
    const VelnorXml handler(nullptr, nullptr, nullptr);
    EXPECT_TRUE(handler.documentFile().isEmpty());
    EXPECT_TRUE(handler.imageDir().isEmpty());
    EXPECT_TRUE(handler.fontDir().isEmpty());
}

TEST_F(Lifecycle, StartsWithoutTagsAndWithoutAKeptText) {
    const VelnorXml handler("/srv/t.xml", nullptr, nullptr);
    EXPECT_TRUE(handler.tags().isEmpty());
    EXPECT_TRUE(handler.objectTags().isEmpty());
    EXPECT_FALSE(handler.isWorkTextValid());
}

TEST_F(Lifecycle, MakesTheFontListWithTheFirstHandler) {
    delete VelnorXml::embeddedFontIdList;
    VelnorXml::embeddedFontIdList = nullptr;
    const VelnorXml handler("/srv/t.xml", nullptr, nullptr);
    ASSERT_NE(VelnorXml::embeddedFontIdList, nullptr);
    EXPECT_TRUE(VelnorXml::embeddedFontIdList->isEmpty());
}

TEST_F(Lifecycle, KeepsTheFontListWhenTheLastHandlerIsFreed) {
    { const VelnorXml handler("/srv/t.xml", nullptr, nullptr); }
    const auto* list = VelnorXml::embeddedFontIdList;
    ASSERT_NE(list, nullptr);
    { const VelnorXml handler("/srv/t.xml", nullptr, nullptr); }
    EXPECT_EQ(VelnorXml::embeddedFontIdList, list);
}

TEST_F(Lifecycle, KeepsTheDictionariesOfHandlersApart) {
    Layout first(canvasDocument(""));
    Layout second(canvasDocument(""));
    first.handler().SetTagDictionary("a", "1");
    second.handler().SetObjectTagDictionary("o.p", "1", false, false);
    EXPECT_EQ(first.handler().tags().size(), 1);
    EXPECT_EQ(first.handler().objectTags().size(), 0);
    EXPECT_EQ(second.handler().tags().size(), 0);
    EXPECT_EQ(second.handler().objectTags().size(), 1);
}

TEST_F(Lifecycle, ReleasesTheDictionaries) {
    auto handler = std::make_unique<VelnorXml>("/srv/t.xml", nullptr, nullptr);
    handler->SetTagDictionary("name", "value");
    const QString key = handler->tags()[0].key;
    EXPECT_FALSE(key.isDetached());
    handler.reset();
    EXPECT_TRUE(key.isDetached());
}

TEST_F(Lifecycle, OfAHandlerWithoutADocumentIsWhole) {
    const ScratchFolder folder;
    const QByteArray path = folder.utf8Path(QStringLiteral("nowhere.xml"));
    const OwnedHandler handler(xmlToImgCreateHandler(path.constData()));
    EXPECT_NE(handler, nullptr);
    const OwnedHandler withDirs(xmlToImgCreateHandlerWithDirs(path.constData(), "x", "y"));
    EXPECT_NE(withDirs, nullptr);
}

TEST_F(Lifecycle, OfAHandlerWithoutAPathIsWhole) {
    const OwnedHandler handler(xmlToImgCreateHandler(nullptr));
    EXPECT_NE(handler, nullptr);
    const OwnedHandler wide(xmlToImgCreateHandlerUnicode(nullptr, -1));
    EXPECT_NE(wide, nullptr);
    const OwnedHandler withDirs(
        xmlToImgCreateHandlerWithDirsUnicode(nullptr, 0, nullptr, 5, nullptr, -1));
    EXPECT_NE(withDirs, nullptr);
}

TEST_F(Lifecycle, EndsWithZeroForAHandlerAndMinusOneForNull) {
    EXPECT_EQ(xmlToImgFreeHandler(xmlToImgCreateHandler("/srv/t.xml")), 0);
    EXPECT_EQ(xmlToImgFreeHandler(nullptr), -1);
}

TEST_F(Lifecycle, TakesWidePathsUpToTheirLengthOrZero) {
    const unsigned short path[] = {'/', 0x444, '/', 't', 0, 'x'};
    const unsigned short images[] = {'/', 'i', 'm', 'g', 0};
    const OwnedHandler handler(
        xmlToImgCreateHandlerWithDirsUnicode(path, -1, images, 3, images, 0));
    const auto* xml = static_cast<const VelnorXml*>(handler.get());
    EXPECT_EQ(xml->documentFile(), QString::fromUtf8("/\xD1\x84/t"));
    EXPECT_EQ(xml->imageDir(), QStringLiteral("/im"));
    EXPECT_TRUE(xml->fontDir().isEmpty());
}

TEST_F(Lifecycle, StoresTheKeepFlagAsZeroOrOne) {
    EXPECT_EQ(xmlToImgSetEmbeddedFontKeepFlag(5), 1);
    EXPECT_TRUE(VelnorXml::embeddedFontKeepFlag);
    EXPECT_EQ(xmlToImgSetEmbeddedFontKeepFlag(-1), 1);
    EXPECT_TRUE(VelnorXml::embeddedFontKeepFlag);
    EXPECT_EQ(xmlToImgSetEmbeddedFontKeepFlag(0), 0);
    EXPECT_FALSE(VelnorXml::embeddedFontKeepFlag);
}

TEST_F(Lifecycle, UnregistersTheFontsOfTheHandler) {
    const ScratchFolder folder;
    folder.write(QStringLiteral("fonts/a.ttf"), fontOfBrand("Alphafonts"));
    const QByteArray path = folder.utf8Path(QStringLiteral("t.xml"));
    auto handler = std::make_unique<VelnorXml>(path.constData(), nullptr, nullptr);
    EXPECT_EQ(VelnorXml::embeddedFontIdList->size(), 1);
    handler.reset();
    EXPECT_TRUE(VelnorXml::embeddedFontIdList->isEmpty());
}
