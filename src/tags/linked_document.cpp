#include "tags/linked_document.h"

#include <QFile>

#include <sys/stat.h>

namespace {

bool isSameTime(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

} // namespace

velnor::FileVersion::FileVersion(const QString& path) {
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) == 0) {
        device = status.st_dev;
        number = status.st_ino;
        size = status.st_size;
        written = status.st_mtim;
        changed = status.st_ctim;
    }
}

bool velnor::FileVersion::operator==(const FileVersion& other) const {
    return device == other.device && number == other.number && size == other.size &&
           isSameTime(written, other.written) && isSameTime(changed, other.changed);
}
