#include "files_on_disk.h"

#include <QFile>

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct stat statusOf(const QString& path) {
    struct stat status {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status;
}

FileSizeLimit::FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &hostLimit);
    const rlimit limit{bytes, hostLimit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &hostLimit);
}
