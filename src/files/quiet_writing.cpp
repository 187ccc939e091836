#include "files/quiet_writing.h"

#include "files/signal_block.h"

#include <cerrno>

#include <unistd.h>

namespace {

// 0, or the error that stopped the writing.
int writeAll(int descriptor, const QByteArray& bytes) {
    const char* from = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    while (left > 0) {
        const ssize_t count = write(descriptor, from, left);
        if (count < 0 && errno != EINTR) {
            return errno;
        }
        const auto written = static_cast<size_t>(count < 0 ? 0 : count);
        from += written;
        left -= written;
    }
    return 0;
}

} // namespace

bool velnor::writeQuietly(int descriptor, const QByteArray& bytes) {
    const SignalBlock block{SIGPIPE, SIGXFSZ};
    const int error = writeAll(descriptor, bytes);
    if (error == EPIPE || error == EFBIG) {
        block.discardNew();
    }
    return error == 0;
}
