#include "files/input_file.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QDir>

#include <sys/stat.h>

namespace {

class InputFile : public testing::Test {
protected:
    static bool opens(const QString& path, qint64 maximumSize = 100) {
        return velnor::InputFile(path).openUpTo(maximumSize);
    }

    ScratchFolder folder;
};

TEST_F(InputFile, OpensForReadingFromItsStart) {
    velnor::InputFile file(folder.write(QStringLiteral("a"), "content"));
    ASSERT_TRUE(file.openUpTo(100));
    EXPECT_EQ(file.readAll(), "content");
}

TEST_F(InputFile, KeepsItsName) {
    velnor::InputFile file(folder.write(QStringLiteral("a.png"), "content"));
    ASSERT_TRUE(file.openUpTo(100));
    EXPECT_EQ(file.fileName(), folder.path(QStringLiteral("a.png")));
}

TEST_F(InputFile, OpensAsTextWhereAsked) {
    velnor::InputFile file(folder.write(QStringLiteral("a"), "one\r\ntwo"));
    ASSERT_TRUE(file.openUpTo(100, QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_EQ(file.readAll(), "one\ntwo");
}

TEST_F(InputFile, OpensUpToItsMaximumSizeAndNotBeyond) {
    const QString path = folder.write(QStringLiteral("a"), "content");
    EXPECT_TRUE(opens(path, 7));
    EXPECT_FALSE(opens(path, 6));
}

TEST_F(InputFile, OpensWithoutContent) {
    EXPECT_TRUE(opens(folder.write(QStringLiteral("empty"), ""), 0));
}

TEST_F(InputFile, OpensThroughALink) {
    const QString path = folder.write(QStringLiteral("a"), "content");
    const QString link = folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(opens(link));
}

TEST_F(InputFile, IsNoDirectory) {
    EXPECT_FALSE(opens(folder.path(QStringLiteral("."))));
}

TEST_F(InputFile, IsNoPipeAndDoesNotWaitForOne) {
    const QString pipe = folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_FALSE(opens(pipe));
}

TEST_F(InputFile, IsNoDevice) {
    EXPECT_FALSE(opens(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(opens(QStringLiteral("/dev/null")));
}

TEST_F(InputFile, NeedsANameThatExists) {
    EXPECT_FALSE(opens(QString()));
    EXPECT_FALSE(opens(folder.path(QStringLiteral("none"))));
}

TEST_F(InputFile, IsNotLookedForUnderTheNameBeforeAZeroCharacter) {
    EXPECT_FALSE(opens(folder.write(QStringLiteral("a"), "content") + QChar(0)));
}

} // namespace
