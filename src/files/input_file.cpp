#include "files/input_file.h"

#include "files/descriptors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Asked of the open file: what stands under its name may be another one by then.
bool mayBeRead(int descriptor, qint64 maximumSize) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_size <= maximumSize;
}

} // namespace

bool velnor::InputFile::openUpTo(qint64 maximumSize, OpenMode mode) {
    if (name.isEmpty() || name.contains(QChar(0))) {
        return false;
    }
    // A pipe without a writer opens at once this way.
    const int descriptor =
        openAwayFromStandardStreams(QFile::encodeName(name).constData(), O_RDONLY | O_NONBLOCK);
    if (descriptor < 0) {
        return false;
    }
    if (mayBeRead(descriptor, maximumSize) && open(descriptor, mode, AutoCloseHandle)) {
        return true;
    }
    ::close(descriptor);
    return false;
}
