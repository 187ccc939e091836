#include "files/quiet_writing.h"

#include <cerrno>
#include <csignal>
#include <ctime>

#include <unistd.h>

namespace {

// While this lives, the signal stays with the calling thread; what writing sent it is taken back.
class SignalHeld {
public:
    explicit SignalHeld(int signalNumber) {
        sigemptyset(&held);
        sigaddset(&held, signalNumber);
        sigset_t pending{};
        sigpending(&pending);
        wasPending = sigismember(&pending, signalNumber) == 1;
        pthread_sigmask(SIG_BLOCK, &held, &hostMask);
    }
    ~SignalHeld() { pthread_sigmask(SIG_SETMASK, &hostMask, nullptr); }
    SignalHeld(const SignalHeld&) = delete;
    SignalHeld& operator=(const SignalHeld&) = delete;

    // One that the host was waiting for already stays pending.
    void takeBack() {
        const timespec atOnce{};
        if (!wasPending) {
            sigtimedwait(&held, nullptr, &atOnce);
        }
    }

private:
    sigset_t held{};
    sigset_t hostMask{};
    bool wasPending = false;
};

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
    SignalHeld pipeSignal(SIGPIPE);
    SignalHeld sizeSignal(SIGXFSZ);
    const int error = writeAll(descriptor, bytes);
    if (error == EPIPE) {
        pipeSignal.takeBack();
    } else if (error == EFBIG) {
        sizeSignal.takeBack();
    }
    return error == 0;
}
