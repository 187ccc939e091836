// Files that cannot be replaced as a whole.
#include "files/output_file.h"
#include "files_on_disk.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

const QByteArray Bytes("the new bytes");

class OutputInPlace : public testing::Test {
protected:
    QString name() const { return folder.path(QStringLiteral("out.png")); }
    QByteArray encodedName() const { return QFile::encodeName(name()); }

    ScratchFolder folder;
};

TEST_F(OutputInPlace, OfSeveralNamesIsWrittenUnderAllOfThem) {
    const QString other = folder.write(QStringLiteral("other.png"), QByteArray(5000, 'o'));
    ASSERT_EQ(link(QFile::encodeName(other).constData(), encodedName().constData()), 0);
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(other), Bytes);
    EXPECT_EQ(statusOf(name()).st_nlink, 2U);
}

TEST_F(OutputInPlace, OfSeveralNamesThatDoesNotFitLeavesNoPartOfItself) {
    const QString other = folder.write(QStringLiteral("other.png"), "older");
    ASSERT_EQ(link(QFile::encodeName(other).constData(), encodedName().constData()), 0);
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writeOutputFile(name(), QByteArray(100000, 'x')));
    EXPECT_EQ(contentOf(other), "");
    EXPECT_EQ(folder.files(), QStringList(QStringLiteral("other.png")));
}

TEST_F(OutputInPlace, OfANameWithoutRoomForAPartIsWritten) {
    const QString longest = folder.path(QString(255, QLatin1Char('n')));
    EXPECT_TRUE(velnor::writeOutputFile(longest, Bytes));
    EXPECT_EQ(contentOf(longest), Bytes);
    EXPECT_EQ(folder.files().size(), 1);
}

TEST_F(OutputInPlace, BehindALinkToNothingIsMade) {
    const QString file = folder.path(QStringLiteral("file.png"));
    ASSERT_TRUE(QFile::link(file, name()));
    EXPECT_TRUE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(file), Bytes);
    EXPECT_EQ(QFile::symLinkTarget(name()), file);
}

TEST_F(OutputInPlace, BehindALinkToNothingThatDoesNotFitLeavesTheLinkAlone) {
    const QString file = folder.path(QStringLiteral("file.png"));
    ASSERT_TRUE(QFile::link(file, name()));
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writeOutputFile(name(), QByteArray(100000, 'x')));
    EXPECT_EQ(QFile::symLinkTarget(name()), file);
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(OutputInPlace, BehindALinkToItselfFails) {
    ASSERT_EQ(symlink(encodedName().constData(), encodedName().constData()), 0);
    EXPECT_FALSE(velnor::writeOutputFile(name(), Bytes));
}

TEST_F(OutputInPlace, ThatTheHostMayNotWriteStaysAsItIs) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root may write every file";
    }
    folder.write(QStringLiteral("out.png"), "older");
    ASSERT_EQ(chmod(encodedName().constData(), S_IRUSR), 0);
    EXPECT_FALSE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_EQ(contentOf(name()), "older");
}

TEST_F(OutputInPlace, OnADeviceThatTakesNothingFailsAndLeavesTheDevice) {
    const QString link = folder.path(QStringLiteral("full.png"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), link));
    EXPECT_FALSE(velnor::writeOutputFile(link, Bytes));
    EXPECT_EQ(QFile::symLinkTarget(link), QStringLiteral("/dev/full"));
    EXPECT_TRUE(S_ISCHR(statusOf(QStringLiteral("/dev/full")).st_mode));
}

TEST_F(OutputInPlace, OnADeviceThatTakesEverythingSucceeds) {
    EXPECT_TRUE(velnor::writeOutputFile(QStringLiteral("/dev/null"), Bytes));
    EXPECT_TRUE(S_ISCHR(statusOf(QStringLiteral("/dev/null")).st_mode));
}

TEST_F(OutputInPlace, IntoAPipeThatNobodyReadsFailsAtOnce) {
    ASSERT_EQ(mkfifo(encodedName().constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_FALSE(velnor::writeOutputFile(name(), Bytes));
    EXPECT_TRUE(S_ISFIFO(statusOf(name()).st_mode));
}

TEST_F(OutputInPlace, IntoAPipeReachesItsReaderAsAWhole) {
    ASSERT_EQ(mkfifo(encodedName().constData(), S_IRUSR | S_IWUSR), 0);
    const QByteArray large(1000000, 'x'); // more than a pipe holds
    const int reader = open(encodedName().constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_EQ(fcntl(reader, F_SETFL, 0), 0);
    bool written = false;
    std::thread writer([&] { written = velnor::writeOutputFile(name(), large); });
    QFile pipe;
    QByteArray received;
    EXPECT_TRUE(pipe.open(reader, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    while (received.size() < large.size()) {
        received += pipe.read(large.size());
    }
    writer.join();
    EXPECT_TRUE(written);
    EXPECT_EQ(received, large);
}

} // namespace
