#include "render/picture_file.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <csignal>

#include <sys/resource.h>

namespace {

// Files of this process end at so many bytes while this lives, as they would on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : hostHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &hostLimit);
        const rlimit limit{bytes, hostLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &hostLimit);
        std::signal(SIGXFSZ, hostHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit hostLimit{};
    void (*hostHandler)(int);
};

QImage somePicture() {
    QImage picture(20, 30, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    return picture;
}

class PictureWriting : public testing::Test {
protected:
    ScratchFolder folder;
};

TEST_F(PictureWriting, EncodesWhatQtWouldSave) {
    const QString saved = folder.path(QStringLiteral("saved.png"));
    ASSERT_TRUE(somePicture().save(saved));
    QFile file(saved);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(velnor::encodePicture(somePicture(), "png"), file.readAll());
}

TEST_F(PictureWriting, EncodesNothingForANullPictureAndForUnknownFormats) {
    EXPECT_TRUE(velnor::encodePicture(QImage(), "png").isEmpty());
    EXPECT_TRUE(velnor::encodePicture(somePicture(), "nonsense").isEmpty());
    EXPECT_TRUE(velnor::encodePicture(somePicture(), "").isEmpty());
}

TEST_F(PictureWriting, LeavesAnOlderFileAloneWhereThereIsNothingToWrite) {
    const QString name = folder.write(QStringLiteral("older.png"), "older");
    EXPECT_FALSE(velnor::writePictureFile(name, QByteArray(), QIODevice::WriteOnly));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "older");
}

TEST_F(PictureWriting, LeavesNoPartOfAFileOnAFullDisk) {
    const QByteArray bytes(100000, 'x');
    const FileSizeLimit limit(4096);
    EXPECT_FALSE(velnor::writePictureFile(folder.path(QStringLiteral("part.png")), bytes,
                                          QIODevice::WriteOnly));
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(PictureWriting, KeepsADeviceThatTakesNothing) {
    const QString link = folder.path(QStringLiteral("full.png"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), link));
    EXPECT_FALSE(velnor::writePictureFile(link, "bytes", QIODevice::WriteOnly));
    EXPECT_EQ(QFile::symLinkTarget(link), QStringLiteral("/dev/full"));
}

TEST_F(PictureWriting, WritesNoNewFileWhereOneIs) {
    const QString name = folder.write(QStringLiteral("there.png"), "there");
    EXPECT_FALSE(
        velnor::writePictureFile(name, "bytes", QIODevice::WriteOnly | QIODevice::NewOnly));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "there");
}

} // namespace
