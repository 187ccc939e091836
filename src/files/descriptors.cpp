#include "files/descriptors.h"

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>

int velnor::awayFromStandardStreams(int descriptor) {
    if (descriptor < 0 || descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const int copy = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    close(descriptor);
    errno = error;
    return copy;
}

bool velnor::descriptorsAreFree(int count) {
    std::vector<int> taken;
    taken.reserve(static_cast<size_t>(count));
    int descriptor = 0;
    while (count > 0 && descriptor >= 0) {
        descriptor = eventfd(0, EFD_CLOEXEC);
        taken.push_back(descriptor);
        --count;
    }
    for (const int one : taken) {
        close(one);
    }
    return descriptor >= 0;
}

int velnor::openAwayFromStandardStreams(const char* path, int flags, mode_t permissions) {
    const int opened = open(path, flags | O_CLOEXEC | O_NOCTTY, permissions);
    const int descriptor = awayFromStandardStreams(opened);
    if (descriptor >= 0 && descriptor != opened) {
        lseek(descriptor, 0, SEEK_SET);
        // Fails on what is open for reading and on devices, which keep nothing.
        [[maybe_unused]] const int cut = ftruncate(descriptor, 0);
    }
    return descriptor;
}
