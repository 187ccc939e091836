// What the font database tells about a family.
#include "handler/velnorxml.h"

#include "font_folders.h"
#include "support/font_files.h"
#include "support/text_fonts.h"

#include <QFontDatabase>

#include <ostream>

namespace {

constexpr int Untouched = 77;

struct Property {
    int result;
    int bold;
    int italic;

    bool operator==(const Property& other) const {
        return result == other.result && bold == other.bold && italic == other.italic;
    }
};

std::ostream& operator<<(std::ostream& out, const Property& property) {
    return out << property.result << ", bold " << property.bold << ", italic " << property.italic;
}

Property propertyOf(const QString& family) {
    Property property = {Untouched, Untouched, Untouched};
    property.result = VelnorXml::GetFontProperty(family, &property.bold, &property.italic);
    return property;
}

// Which of the three font tests say yes: available, bold, italic.
std::string answers(const QFontDatabase* database, const QString& family) {
    std::string yes;
    yes += VelnorXml::fontFamilyIsAvailable(database, family) ? "a" : "";
    yes += VelnorXml::fontFamilyIsBold(database, family) ? "b" : "";
    yes += VelnorXml::fontFamilyIsItalic(database, family) ? "i" : "";
    return yes;
}

std::string answers(const QString& family) {
    const QFontDatabase database;
    return answers(&database, family);
}

class FontQueries : public FontFolders {
protected:
    FontQueries() { registerTextFonts(); }
};

TEST_F(FontQueries, OfAFamilyWithAllStyles) {
    EXPECT_EQ(answers(textFamily()), "abi");
    EXPECT_EQ(propertyOf(textFamily()), (Property{0, 1, 1}));
}

TEST_F(FontQueries, OfAFamilyWithRegularOnly) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    const auto owner = handler();
    EXPECT_EQ(answers(familyOfBrand(Alpha)), "a");
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{0, 0, 0}));
}

TEST_F(FontQueries, OfAFamilyWithBoldOnly) {
    writeFont("a.ttf", fontOfBrand(Alpha, "Bold"));
    const auto owner = handler();
    EXPECT_EQ(answers(familyOfBrand(Alpha)), "ab");
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{0, 1, 0}));
}

TEST_F(FontQueries, OfAFamilyWithItalicOnly) {
    writeFont("a.ttf", fontOfBrand(Alpha, "Italic"));
    const auto owner = handler();
    EXPECT_EQ(answers(familyOfBrand(Alpha)), "ai");
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{0, 0, 1}));
}

TEST_F(FontQueries, OfAFamilyWhoseStylesLieInSeveralFiles) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    writeFont("b.ttf", fontOfBrand(Alpha, "Bold"));
    writeFont("i.ttf", fontOfBrand(Alpha, "Italic"));
    const auto owner = handler();
    EXPECT_EQ(answers(familyOfBrand(Alpha)), "abi");
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{0, 1, 1}));
}

TEST_F(FontQueries, OfAnUnknownFamilyFailWithBothZero) {
    const QString unknown = QStringLiteral("No Such Family");
    EXPECT_EQ(answers(unknown), "");
    EXPECT_EQ(propertyOf(unknown), (Property{-1, 0, 0}));
}

TEST_F(FontQueries, OfAFamilyOutsideLatin1) {
    const QString brand = QString::fromUtf8("\xCE\x93\xCF\x81\xCE\xB1\xCE\xBC\xCE\xBC\xCE\xB1"
                                            "\xCF\x84\xCE\xB1\xCE\xBF\xCE\xBD");
    const QString family = brand + QLatin1String(" Sans");
    EXPECT_EQ(propertyOf(family), (Property{-1, 0, 0}));
    writeFont("a.ttf", fontOfWideBrand(brand));
    const auto owner = handler();
    EXPECT_EQ(answers(family), "a");
    EXPECT_EQ(propertyOf(family), (Property{0, 0, 0}));
}

// No style is listed for it, but the default font matches it exactly.
TEST_F(FontQueries, OfAnEmptyFamilyAreThoseOfTheDefaultFont) {
    EXPECT_EQ(answers(QString()), "");
    EXPECT_EQ(propertyOf(QString()), (Property{0, 0, 0}));
}

TEST_F(FontQueries, WithoutADatabaseSayNo) {
    EXPECT_EQ(answers(nullptr, textFamily()), "");
}

TEST_F(FontQueries, WithoutAPlaceForBothAnswersFailAndWriteNothing) {
    int answer = Untouched;
    EXPECT_EQ(VelnorXml::GetFontProperty(textFamily(), nullptr, &answer), -1);
    EXPECT_EQ(VelnorXml::GetFontProperty(textFamily(), &answer, nullptr), -1);
    EXPECT_EQ(VelnorXml::GetFontProperty(textFamily(), nullptr, nullptr), -1);
    EXPECT_EQ(answer, Untouched);
}

TEST_F(FontQueries, FollowTheFontsThatHandlersRegister) {
    writeFont("a.ttf", fontOfBrand(Alpha));
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{-1, 0, 0}));
    auto owner = handler();
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{0, 0, 0}));
    owner.reset();
    EXPECT_EQ(propertyOf(familyOfBrand(Alpha)), (Property{-1, 0, 0}));
}

} // namespace
