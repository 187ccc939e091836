// What tests ask of files, and limits that make writing them fail.
#ifndef VELNOR_TESTS_FILES_ON_DISK_H
#define VELNOR_TESTS_FILES_ON_DISK_H

#include <QByteArray>
#include <QString>

#include <sys/resource.h>
#include <sys/stat.h>

QByteArray contentOf(const QString& path);
struct stat statusOf(const QString& path);

// Files of this process end at so many bytes while this lives, as they would on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit hostLimit{};
};

#endif
