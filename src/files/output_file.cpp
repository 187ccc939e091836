#include "files/output_file.h"

#include "files/descriptors.h"
#include "files/quiet_writing.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr mode_t NewFilePermissions = 0666; // less the host's umask

class OpenFile {
public:
    OpenFile(const QByteArray& path, int flags)
        : descriptor(velnor::openAwayFromStandardStreams(path.constData(), O_WRONLY | flags,
                                                         NewFilePermissions)) {}
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return descriptor >= 0; }
    int number() const { return descriptor; }

    // Some file systems tell only here that the disk is full.
    bool close() {
        const int closed = descriptor < 0 ? 0 : ::close(descriptor);
        descriptor = -1;
        return closed == 0;
    }

private:
    int descriptor;
};

std::optional<struct stat> statusOf(const QByteArray& path) {
    struct stat status {};
    if (lstat(path.constData(), &status) != 0) {
        return std::nullopt;
    }
    return status;
}

// The file that a link names in the end. A link to nothing stays as it is: written through.
QByteArray behindLinks(const QByteArray& path) {
    const auto status = statusOf(path);
    if (!status || !S_ISLNK(status->st_mode)) {
        return path;
    }
    const std::unique_ptr<char, decltype(&std::free)> target(realpath(path.constData(), nullptr),
                                                             &std::free);
    return target ? QByteArray(target.get()) : path;
}

// A device or a pipe is opened only where somebody takes what is written to it.
bool writeInPlace(const QByteArray& path, const QByteArray& bytes) {
    OpenFile file(path, O_CREAT | O_TRUNC | O_NONBLOCK);
    if (!file.isOpen() || fcntl(file.number(), F_SETFL, 0) != 0) {
        return false;
    }
    if (velnor::writeQuietly(file.number(), bytes)) {
        return file.close();
    }
    struct stat status {};
    if (fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
        ftruncate(file.number(), 0) == 0) {
        unlink(behindLinks(path).constData());
    }
    return false;
}

// What `read` gives when it is asked first for the size; nothing where there is none.
template <typename Read>
std::optional<QByteArray> readAttribute(Read read) {
    const ssize_t size = read(nullptr, 0);
    QByteArray value(static_cast<int>(std::max<ssize_t>(size, 0)), '\0');
    if (size < 0 || read(value.data(), static_cast<size_t>(value.size())) != size) {
        return std::nullopt;
    }
    return value;
}

bool takeAttribute(const OpenFile& file, const QByteArray& path, const char* name) {
    const auto value = readAttribute(
        [&](char* buffer, size_t size) { return getxattr(path.constData(), name, buffer, size); });
    // Security modules label new files themselves.
    return (value && fsetxattr(file.number(), name, value->constData(),
                               static_cast<size_t>(value->size()), 0) == 0) ||
           qstrncmp(name, "security.", 9) == 0;
}

// Extended attributes, access lists among them: under a list, the mode's group bits are its mask.
bool takeAttributes(const OpenFile& file, const QByteArray& path) {
    const auto names = readAttribute(
        [&path](char* buffer, size_t size) { return listxattr(path.constData(), buffer, size); });
    if (!names) {
        return errno == ENOTSUP;
    }
    bool taken = true;
    for (int at = 0; taken && at < names->size(); at = names->indexOf('\0', at) + 1) {
        taken = takeAttribute(file, path, names->constData() + at);
    }
    return taken;
}

bool takeOwnerAndPermissions(const OpenFile& file, const QByteArray& path,
                             const struct stat& replaced) {
    return fchown(file.number(), replaced.st_uid, replaced.st_gid) == 0 &&
           fchmod(file.number(), replaced.st_mode & 07777U) == 0 && takeAttributes(file, path);
}

// An ordinary file of one name that the host may write, or nothing yet. Of no name, where another
// writer has just replaced it.
bool canBeReplaced(const QByteArray& path, const std::optional<struct stat>& status) {
    return !status || (S_ISREG(status->st_mode) && status->st_nlink <= 1 &&
                       faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0);
}

QByteArray folderOf(const QByteArray& path) {
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash + 1);
}

// Gives a name to a file that has none yet: 0, or the error, such as that the name is taken.
int giveName(const OpenFile& file, const QByteArray& name) {
    const QByteArray unnamed = "/proc/self/fd/" + QByteArray::number(file.number());
    const int given =
        linkat(AT_FDCWD, unnamed.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW);
    return given == 0 ? 0 : errno;
}

// A scratch that has gone went to another writer of the same file, whose picture is the later one.
bool renameScratch(const QByteArray& scratch, const QByteArray& path) {
    if (rename(scratch.constData(), path.constData()) == 0 || errno == ENOENT) {
        return true;
    }
    unlink(scratch.constData());
    return false;
}

// What has the file's name already is replaced by way of another name.
bool takePlace(const OpenFile& file, const QByteArray& path) {
    constexpr int Attempts = 10;
    const QByteArray scratch = path + ".part";
    // One may be left of a process that was killed, or be another writer's of the same file.
    unlink(scratch.constData());
    int error = giveName(file, path);
    if (error == 0) {
        return true;
    }
    for (int i = 0; i < Attempts && error == EEXIST; ++i) {
        error = giveName(file, scratch);
        if (error == 0) {
            return renameScratch(scratch, path);
        }
        unlink(scratch.constData());
    }
    return false;
}

enum class Replacing { Done, Failed, Impossible };

// By way of a new file, of which nothing can be seen before it is complete and nothing stays when
// the process is killed. Impossible where the file system has no such files.
Replacing replaceFile(const QByteArray& path, const QByteArray& bytes) {
    const auto replaced = statusOf(path);
    if (!canBeReplaced(path, replaced)) {
        return Replacing::Impossible;
    }
    const OpenFile file(folderOf(path), O_TMPFILE);
    if (!file.isOpen() || (replaced && !takeOwnerAndPermissions(file, path, *replaced))) {
        return Replacing::Impossible;
    }
    if (!velnor::writeQuietly(file.number(), bytes)) {
        return Replacing::Failed;
    }
    return takePlace(file, path) ? Replacing::Done : Replacing::Impossible;
}

bool canBeNamed(const QString& path) {
    return !path.isEmpty() && !path.contains(QChar(0));
}

} // namespace

bool velnor::writeOutputFile(const QString& path, const QByteArray& bytes) {
    if (bytes.isEmpty() || !canBeNamed(path)) {
        return false;
    }
    const QByteArray file = behindLinks(QFile::encodeName(path));
    const Replacing replacing = replaceFile(file, bytes);
    return replacing == Replacing::Done ||
           (replacing == Replacing::Impossible && writeInPlace(file, bytes));
}
