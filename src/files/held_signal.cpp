#include "files/held_signal.h"

#include <ctime>

velnor::HeldSignal::HeldSignal(int signalNumber) {
    sigemptyset(&held);
    sigaddset(&held, signalNumber);
    sigset_t pending{};
    sigpending(&pending);
    wasPending = sigismember(&pending, signalNumber) == 1;
    pthread_sigmask(SIG_BLOCK, &held, &hostMask);
}

velnor::HeldSignal::~HeldSignal() {
    pthread_sigmask(SIG_SETMASK, &hostMask, nullptr);
}

void velnor::HeldSignal::takeBack() {
    const timespec atOnce{};
    if (!wasPending) {
        sigtimedwait(&held, nullptr, &atOnce);
    }
}
