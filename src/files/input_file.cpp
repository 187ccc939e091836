#include "files/input_file.h"

#include "files/descriptors.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool mayBeName(const QString& name) {
    return !name.isEmpty() && !name.contains(QChar(0));
}

// Asked of the open file: what stands under its name may be another one by then.
bool mayBeRead(int descriptor, qint64 maximumSize) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_size <= maximumSize;
}

} // namespace

bool velnor::InputFile::exists(const QString& name) {
    return mayBeName(name) && QFile::exists(name);
}

bool velnor::InputFile::openUpTo(qint64 maximumSize, OpenMode mode) {
    if (!mayBeName(name)) {
        return false;
    }
    // Looks search paths up: its path is that of what was found in them.
    const QFileInfo file(name);
    if (file.isNativePath()) {
        return openOnDisk(file.filePath(), maximumSize, mode);
    }
    setFileName(file.filePath());
    return file.isFile() && file.size() <= maximumSize && open(mode);
}

bool velnor::InputFile::openOnDisk(const QString& path, qint64 maximumSize, OpenMode mode) {
    // A pipe without a writer opens at once this way.
    const int descriptor =
        openAwayFromStandardStreams(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    if (descriptor < 0) {
        return false;
    }
    if (mayBeRead(descriptor, maximumSize) && open(descriptor, mode, AutoCloseHandle)) {
        return true;
    }
    ::close(descriptor);
    return false;
}
