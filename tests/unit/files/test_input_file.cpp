#include "files/input_file.h"
#include "support/qt_messages.h"
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

// Names that only Qt knows: those of resources, and of files in a search path.
class QtInputFile : public InputFile {
protected:
    QtInputFile() {
        QDir::addSearchPath(QStringLiteral("layouts"), folder.path(QStringLiteral("layouts")));
        QDir::addSearchPath(QStringLiteral("layouts"), QStringLiteral(":/files"));
    }
    ~QtInputFile() override { QDir::setSearchPaths(QStringLiteral("layouts"), {}); }

    static QByteArray contentOf(const QString& name) {
        velnor::InputFile file(name);
        return file.openUpTo(MaximumSize) ? file.readAll() : QByteArray();
    }
    // True where the name is refused without a word of Qt's.
    static bool isRefused(const QString& name) {
        const QtMessages messages;
        return !opens(name) && messages.heard().empty();
    }

    static constexpr qint64 MaximumSize = 100000;
    const QByteArray plain = contentOf(QStringLiteral(":/files/plain.txt"));
};

TEST_F(QtInputFile, MayBeAResource) {
    EXPECT_GT(plain.size(), 1000);
    EXPECT_EQ(contentOf(QStringLiteral(":/files/packed.txt")), plain);
}

TEST_F(QtInputFile, OfAResourceKeepsItsName) {
    velnor::InputFile file(QStringLiteral("layouts:packed.txt"));
    ASSERT_TRUE(file.openUpTo(MaximumSize));
    EXPECT_EQ(file.fileName(), QStringLiteral("layouts:packed.txt"));
}

TEST_F(QtInputFile, OfAResourceHasTheSameMaximumSize) {
    for (const char* name : {"plain.txt", "packed.txt"}) {
        const QString path = QStringLiteral(":/files/") + QLatin1String(name);
        EXPECT_TRUE(opens(path, plain.size())) << name;
        EXPECT_FALSE(opens(path, plain.size() - 1)) << name;
    }
}

TEST_F(QtInputFile, OfAResourceOpensAsTextWhereAsked) {
    velnor::InputFile file(QStringLiteral(":/files/packed.txt"));
    ASSERT_TRUE(file.openUpTo(MaximumSize, QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_TRUE(file.isTextModeEnabled());
}

TEST_F(QtInputFile, MayLieInASearchPath) {
    folder.write(QStringLiteral("layouts/t.xml"), "content");
    EXPECT_EQ(contentOf(QStringLiteral("layouts:t.xml")), "content");
    EXPECT_EQ(contentOf(QStringLiteral("layouts:packed.txt")), plain);
    EXPECT_FALSE(opens(QStringLiteral("layouts:t.xml"), 6));
    EXPECT_FALSE(opens(QStringLiteral("layouts:none.xml")));
}

TEST_F(QtInputFile, OfASearchPathIsNoPipeAndDoesNotWaitForOne) {
    folder.write(QStringLiteral("layouts/t.xml"), "content");
    const QString pipe = folder.path(QStringLiteral("layouts/pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_TRUE(isRefused(QStringLiteral("layouts:pipe")));
}

TEST_F(QtInputFile, IsNothingElse) {
    for (const char* name : {":/files", ":/", ":", ":/files/none", "layouts:", "none:t.xml"}) {
        EXPECT_TRUE(isRefused(QLatin1String(name))) << name;
    }
    EXPECT_TRUE(isRefused(QStringLiteral(":/files/plain.txt") + QChar(0)));
    EXPECT_TRUE(isRefused(QStringLiteral("layouts:packed.txt") + QChar(0)));
}

TEST_F(QtInputFile, ExistsWhereQtFindsAnything) {
    const QtMessages messages;
    const QString file = folder.write(QStringLiteral("layouts/t.xml"), "content");
    const QString pipe = folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    for (const QString& name :
         {file, pipe, folder.path(QStringLiteral(".")), QStringLiteral("layouts:t.xml"),
          QStringLiteral("layouts:packed.txt"), QStringLiteral(":/files"),
          QStringLiteral(":/files/packed.txt")}) {
        EXPECT_TRUE(velnor::InputFile::exists(name)) << name.toStdString();
        EXPECT_FALSE(velnor::InputFile::exists(name + QChar(0))) << name.toStdString();
        EXPECT_FALSE(velnor::InputFile::exists(name + QStringLiteral("x"))) << name.toStdString();
    }
    EXPECT_FALSE(velnor::InputFile::exists(QString()));
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
