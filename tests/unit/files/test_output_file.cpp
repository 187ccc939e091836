// Files that are replaced as a whole.
#include "files/output_file.h"
#include "files_on_disk.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <atomic>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

const QByteArray Bytes("the new bytes");

class OutputFile : public testing::Test {
protected:
    QString name() const { return folder.path(QStringLiteral("out.png")); }

    ScratchFolder folder;
};

TEST_F(OutputFile, HoldsTheBytesAndHasNothingBesideIt) {
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(name()), Bytes);
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("out.png")));
}

TEST_F(OutputFile, HasThePermissionsOfTheHostsMask) {
    const mode_t hostMask = umask(027);
    velnor::writeOutputFile(name(), Bytes);
    umask(hostMask);
    EXPECT_EQ(statusOf(name()).st_mode & 07777U, 0640U);
}

TEST_F(OutputFile, TakesThePlaceOfAnOlderOne) {
    folder.write(QStringLiteral("out.png"), QByteArray(5000, 'o'));
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(name()), Bytes);
}

TEST_F(OutputFile, StaysWholeForWhoReadsTheOlderOne) {
    QFile older(folder.write(QStringLiteral("out.png"), "older"));
    ASSERT_TRUE(older.open(QIODevice::ReadOnly));
    velnor::writeOutputFile(name(), Bytes);
    EXPECT_EQ(older.readAll(), "older");
}

TEST_F(OutputFile, KeepsThePermissionsOfTheOlderOne) {
    folder.write(QStringLiteral("out.png"), "older");
    ASSERT_EQ(chmod(QFile::encodeName(name()).constData(), 0604), 0);
    velnor::writeOutputFile(name(), Bytes);
    EXPECT_EQ(statusOf(name()).st_mode & 07777U, 0604U);
}

TEST_F(OutputFile, KeepsTheOwnerOfTheOlderOne) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give files away";
    }
    folder.write(QStringLiteral("out.png"), "older");
    ASSERT_EQ(chown(QFile::encodeName(name()).constData(), 1, 2), 0);
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(statusOf(name()).st_uid, 1U);
    EXPECT_EQ(statusOf(name()).st_gid, 2U);
}

TEST_F(OutputFile, OfNoBytesLeavesAnOlderOneAlone) {
    folder.write(QStringLiteral("out.png"), "older");
    EXPECT_FALSE(velnor::writeOutputFile(name(), QByteArray()));
    EXPECT_EQ(contentOf(name()), "older");
}

TEST_F(OutputFile, ThatDoesNotFitLeavesAnOlderOneAloneAndNothingBesideIt) {
    folder.write(QStringLiteral("out.png"), "older");
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writeOutputFile(name(), QByteArray(100000, 'x')));
    EXPECT_EQ(contentOf(name()), "older");
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("out.png")));
}

TEST_F(OutputFile, ThatDoesNotFitLeavesNoPartOfItself) {
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writeOutputFile(name(), QByteArray(100000, 'x')));
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(OutputFile, IsWrittenWhereAKilledProcessLeftAPart) {
    folder.write(QStringLiteral("out.png.part"), "part");
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("out.png")));
}

TEST_F(OutputFile, IsNotWrittenThroughALinkInThePlaceOfItsPart) {
    const QString victim = folder.write(QStringLiteral("victim"), "safe");
    ASSERT_TRUE(QFile::link(victim, folder.path(QStringLiteral("out.png.part"))));
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(victim), "safe");
}

TEST_F(OutputFile, IsReplacedBehindALinkThatStays) {
    const QString file = folder.write(QStringLiteral("file.png"), "older");
    ASSERT_TRUE(QFile::link(file, name()));
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(QFile::symLinkTarget(name()), file);
    EXPECT_EQ(contentOf(file), Bytes);
}

TEST_F(OutputFile, OfSeveralWritersAtOnceIsThatOfOneOfThem) {
    std::vector<std::thread> writers;
    std::atomic<int> torn{0};
    std::atomic<bool> writing{true};
    std::thread reader([&] {
        while (writing) {
            const QByteArray content = contentOf(name());
            torn += content.count(content.isEmpty() ? 'x' : content[0]) == content.size() &&
                            (content.isEmpty() || content.size() == 100000)
                        ? 0
                        : 1;
        }
    });
    for (const char letter : {'a', 'b', 'c'}) {
        writers.emplace_back([this, letter] {
            for (int i = 0; i < 100; ++i) {
                EXPECT_TRUE(velnor::writeOutputFile(name(), QByteArray(100000, letter)));
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    writing = false;
    reader.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("out.png")));
}

TEST_F(OutputFile, NeedsAFolderAndAName) {
    EXPECT_FALSE(velnor::writeOutputFile(folder.path(QStringLiteral("none/out.png")), Bytes));
    EXPECT_FALSE(velnor::writeOutputFile(QString(), Bytes));
    EXPECT_FALSE(velnor::writeOutputFile(name() + QChar(0), Bytes));
    EXPECT_FALSE(velnor::writeOutputFile(folder.path(QStringLiteral(".")), Bytes));
    EXPECT_TRUE(folder.files().isEmpty());
}

} // namespace
