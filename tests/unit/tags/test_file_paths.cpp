#include "handler/velnorxml.h"

#include "support/printing.h"
#include "support/rows.h"

namespace {

struct DocumentRow : Row {
    const char* document;
    const char* path;
    const char* resolved;
};

struct ImageRow : Row {
    const char* document;
    const char* images;
    const char* path;
    const char* resolved;
};

class DocumentPath : public testing::TestWithParam<DocumentRow> {};
class ImagePath : public testing::TestWithParam<ImageRow> {};

const DocumentRow DocumentPaths[] = {
    {"ABareNameLiesBesideAWindowsDocument", "C:\\layouts\\ticket.xml", "logo.png",
     "C:\\layouts\\logo.png"},
    {"ARelativePathTakesTheSeparatorOfAWindowsDocument", "C:\\layouts\\ticket.xml", "img/logo.png",
     "C:\\layouts\\img\\logo.png"},
    {"ABareNameLiesBesideAUnixDocument", "/srv/forms/t.xml", "a.png", "/srv/forms/a.png"},
    {"ARelativePathTakesTheSeparatorOfAUnixDocument", "/srv/forms/t.xml", "sub\\pic.bmp",
     "/srv/forms/sub/pic.bmp"},
    {"MixedSeparatorsBecomeOne", "/srv/forms/t.xml", "a\\b/c\\d.png", "/srv/forms/a/b/c/d.png"},
    {"ADocumentWithoutADirectoryLeavesABareNameAlone", "t.xml", "a.png", "a.png"},
    {"ADocumentWithoutADirectoryLeavesARelativePathAlone", "t.xml", "sub\\a.png", "sub\\a.png"},
    {"ADocumentWithoutADirectoryLeavesAnAbsolutePathAlone", "t.xml", "/abs/a.png", "/abs/a.png"},
    {"AnEmptyDocumentPathLeavesANameAlone", "", "a.png", "a.png"},
    {"ARelativeDocumentPathIsEnough", "forms/t.xml", "a.png", "forms/a.png"},
    {"ADocumentInTheRootDirectory", "/t.xml", "a.png", "/a.png"},
    {"ADocumentPathWithBothSeparatorsCountsAsUnix", "C:\\a/b\\t.xml", "x\\y.png", "C:\\a/x/y.png"},
    {"AUnixRootIsAbsolute", "/srv/forms/t.xml", "/abs/a.png", "/abs/a.png"},
    {"AWindowsRootIsAbsolute", "/srv/forms/t.xml", "\\abs\\a.png", "\\abs\\a.png"},
    {"AWindowsDriveIsAbsolute", "/srv/forms/t.xml", "D:\\pics\\a.png", "D:\\pics\\a.png"},
    {"ADriveWithASlashIsAbsolute", "C:\\layouts\\t.xml", "D:/pics/a.png", "D:/pics/a.png"},
    {"ADriveMarkerAnywhereIsAbsolute", "/srv/forms/t.xml", "sub/D:\\a.png", "sub/D:\\a.png"},
    {"AnAddressIsAbsolute", "/srv/forms/t.xml", "file:///a.png", "file:///a.png"},
    {"AColonAloneIsNotAbsolute", "/srv/forms/t.xml", "D:a.png", "/srv/forms/D:a.png"},
    {"PointsStayInPlace", "/srv/forms/t.xml", "../img/./a.png", "/srv/forms/../img/./a.png"},
    {"ABarePointStaysInPlace", "/srv/forms/t.xml", "..", "/srv/forms/.."},
    {"AnEmptyNameIsTheDirectory", "/srv/forms/t.xml", "", "/srv/forms/"},
    {"ASeparatorAtTheEndStays", "/srv/forms/t.xml", "sub/", "/srv/forms/sub/"},
    {"BlanksStay", "/srv/my forms/t.xml", " a b .png ", "/srv/my forms/ a b .png "},
    {"LettersOutsideLatin1Stay", "/srv/\xD1\x84/t.xml", "\xE2\x82\xAC.png",
     "/srv/\xD1\x84/\xE2\x82\xAC.png"},
};

const ImageRow ImagePaths[] = {
    {"WithoutADirectoryABareNameLiesBesideTheDocument", "C:\\layouts\\ticket.xml", "", "logo.png",
     "C:\\layouts\\logo.png"},
    {"WithoutADirectoryARelativePathIsRelativeToTheDocument", "C:\\layouts\\ticket.xml", "",
     "img/logo.png", "C:\\layouts\\img\\logo.png"},
    {"ABareNameLiesInTheDirectory", "/srv/forms/t.xml", "/data/images", "a.png",
     "/data/images/a.png"},
    {"ARelativeDirectoryInTheNameIsDropped", "/srv/forms/t.xml", "/data/images", "img\\logo.png",
     "/data/images/logo.png"},
    {"AllRelativeDirectoriesInTheNameAreDropped", "/srv/forms/t.xml", "/data/images",
     "../a\\b/logo.png", "/data/images/logo.png"},
    {"AnAbsoluteUnixPathStays", "/srv/forms/t.xml", "/data/images", "/abs/a.png", "/abs/a.png"},
    {"AnAbsoluteDrivePathStays", "/srv/forms/t.xml", "/data/images", "D:/pics/a.png",
     "D:/pics/a.png"},
    {"AnAbsoluteBackslashPathStays", "/srv/forms/t.xml", "/data/images", "\\pics\\a.png",
     "\\pics\\a.png"},
    {"ADirectoryWithoutASeparatorIsIgnored", "/srv/forms/t.xml", "images", "a.png",
     "/srv/forms/a.png"},
    {"ADirectoryWithoutASeparatorIsIgnoredForRelativePathsToo", "/srv/forms/t.xml", "images",
     "sub/a.png", "/srv/forms/sub/a.png"},
    {"APointIsNoSeparator", "/srv/forms/t.xml", ".", "a.png", "/srv/forms/a.png"},
    {"ARelativeDirectoryIsTakenAsItIs", "/srv/forms/t.xml", "./images", "a.png", "./images/a.png"},
    {"ASeparatorAtTheEndOfTheDirectoryIsDoubled", "/srv/forms/t.xml", "/data/images/", "a.png",
     "/data/images//a.png"},
    {"AWindowsDirectoryGivesItsSeparator", "/srv/forms/t.xml", "D:\\pics", "a.png",
     "D:\\pics\\a.png"},
    {"AWindowsDirectoryDropsUnixDirectoriesInTheName", "/srv/forms/t.xml", "D:\\pics", "sub/a.png",
     "D:\\pics\\a.png"},
    {"ADirectoryWithBothSeparatorsCountsAsUnix", "/srv/forms/t.xml", "D:\\pics/x", "s\\a.png",
     "D:\\pics/x/a.png"},
    {"AnEmptyNameIsTheDirectory", "/srv/forms/t.xml", "/data/images", "", "/data/images/"},
    {"ANameThatEndsInASeparatorIsTheDirectory", "/srv/forms/t.xml", "/data/images", "sub/",
     "/data/images/"},
    {"TheDocumentPathIsNotNeeded", "t.xml", "/data/images", "a.png", "/data/images/a.png"},
};

} // namespace

TEST_P(DocumentPath, ResolvesNamesAgainstTheDocument) {
    const VelnorXml handler(GetParam().document, nullptr, nullptr);
    EXPECT_EQ(handler.FixAbsRelFilePath(QString::fromUtf8(GetParam().path)),
              QString::fromUtf8(GetParam().resolved));
}

// Without an image directory both operations answer the same.
TEST_P(DocumentPath, ResolvesImagesWithoutADirectory) {
    const VelnorXml handler(GetParam().document, nullptr, nullptr);
    EXPECT_EQ(handler.GetImageFilePath(QString::fromUtf8(GetParam().path)),
              QString::fromUtf8(GetParam().resolved));
}

TEST_P(ImagePath, ResolvesNamesAgainstTheImageDirectory) {
    const VelnorXml handler(GetParam().document, GetParam().images, nullptr);
    EXPECT_EQ(handler.GetImageFilePath(QString::fromUtf8(GetParam().path)),
              QString::fromUtf8(GetParam().resolved));
}

INSTANTIATE_TEST_SUITE_P(FilePaths, DocumentPath, testing::ValuesIn(DocumentPaths), RuleAsName());
INSTANTIATE_TEST_SUITE_P(FilePaths, ImagePath, testing::ValuesIn(ImagePaths), RuleAsName());

TEST(FilePaths, OfAMillionCharactersAreResolved) {
    const VelnorXml handler("/srv/t.xml", nullptr, nullptr);
    const QString path(1000000, QLatin1Char('\\'));
    EXPECT_EQ(handler.FixAbsRelFilePath(QLatin1Char('a') + path).size(), 1000006);
}
