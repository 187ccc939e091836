// The list of the fonts that the process can use.
#include "render/velnorimage.h"
#include "support/font_files.h"
#include "support/printing.h"
#include "support/text_fonts.h"

#include <gmock/gmock.h>

#include <QFontDatabase>

#include <memory>
#include <stdexcept>

using testing::Contains;
using testing::Not;

namespace {

constexpr char Brand[] = "Listyfonts";

// A font that is registered for as long as this lives.
class RegisteredFont {
public:
    explicit RegisteredFont(const QByteArray& content)
        : id(QFontDatabase::addApplicationFontFromData(content)) {
        if (id == -1) {
            throw std::runtime_error("cannot register the font");
        }
    }
    ~RegisteredFont() { QFontDatabase::removeApplicationFont(id); }
    RegisteredFont(const RegisteredFont&) = delete;
    RegisteredFont& operator=(const RegisteredFont&) = delete;

private:
    int id;
};

QByteArray joinedList() {
    const std::unique_ptr<char[]> list(VelnorImage::GetAvailableFont());
    return list.get();
}

QStringList entriesOf(const QString& family) {
    return VelnorImage::ListAvailableFont().filter(family + QLatin1Char(' '));
}

class FontList : public testing::Test {
protected:
    FontList() { registerTextFonts(); }
};

TEST_F(FontList, HoldsOneEntryForEachStyleOfAFamily) {
    const QStringList fonts = VelnorImage::ListAvailableFont();
    for (const char* style : {"Regular", "Bold", "Italic"}) {
        EXPECT_EQ(fonts.count(textFamily() + QLatin1Char(' ') + QLatin1String(style)), 1) << style;
    }
}

TEST_F(FontList, HoldsOneEntryForAFamilyOfOneStyle) {
    const RegisteredFont font(fontOfBrand(Brand));
    EXPECT_EQ(entriesOf(familyOfBrand(Brand)),
              QStringList(QStringLiteral("Listyfonts Sans Regular")));
}

TEST_F(FontList, HoldsFamiliesAndStylesInTheOrderOfTheDatabase) {
    const RegisteredFont regular(fontOfBrand(Brand));
    const RegisteredFont bold(fontOfBrand(Brand, "Bold"));
    const QFontDatabase database;
    const QStringList fonts = VelnorImage::ListAvailableFont();
    int at = 0;
    for (const QString& family : database.families()) {
        for (const QString& style : database.styles(family)) {
            EXPECT_EQ(fonts.value(at), family + QLatin1Char(' ') + style);
            ++at;
        }
    }
    EXPECT_EQ(fonts.size(), at);
}

TEST_F(FontList, FollowsTheFontsThatComeAndGo) {
    const QString entry = QStringLiteral("Listyfonts Sans Regular");
    EXPECT_THAT(VelnorImage::ListAvailableFont(), Not(Contains(entry)));
    {
        const RegisteredFont font(fontOfBrand(Brand));
        EXPECT_THAT(VelnorImage::ListAvailableFont(), Contains(entry));
    }
    EXPECT_THAT(VelnorImage::ListAvailableFont(), Not(Contains(entry)));
}

TEST_F(FontList, IsJoinedBySemicolonsBetweenTheEntriesAlone) {
    const QByteArray joined = joinedList();
    EXPECT_EQ(QString::fromLatin1(joined), VelnorImage::ListAvailableFont().join(QLatin1Char(';')));
    EXPECT_FALSE(joined.startsWith(';'));
    EXPECT_FALSE(joined.endsWith(';'));
    EXPECT_FALSE(joined.contains(";;"));
}

TEST_F(FontList, IsLatin1) {
    const RegisteredFont font(fontOfWideBrand(QString::fromLatin1("Gr\xF6\xDF"
                                                                  "efonts")));
    EXPECT_THAT(joinedList().split(';'), Contains(QByteArray("Gr\xF6\xDF"
                                                             "efonts Sans Regular")));
}

TEST_F(FontList, HoldsQuestionMarksForCharactersOutsideLatin1) {
    const QString brand = QString::fromUtf8("\xE2\x82\xAC"
                                            "urof\xCF\x89nts!");
    const RegisteredFont font(fontOfWideBrand(brand));
    EXPECT_THAT(VelnorImage::ListAvailableFont(), Contains(brand + QLatin1String(" Sans Regular")));
    EXPECT_THAT(joinedList().split(';'), Contains(QByteArray("?urof?nts! Sans Regular")));
}

TEST_F(FontList, IsANewOneEachTime) {
    const std::unique_ptr<char[]> first(VelnorImage::GetAvailableFont());
    const std::unique_ptr<char[]> second(VelnorImage::GetAvailableFont());
    EXPECT_NE(first.get(), second.get());
    EXPECT_STREQ(first.get(), second.get());
}

} // namespace
