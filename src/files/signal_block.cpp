#include "files/signal_block.h"

#include <ctime>

velnor::SignalBlock::SignalBlock(std::initializer_list<int> signalNumbers) {
    sigset_t pending{};
    sigpending(&pending);
    sigset_t blocked{};
    sigemptyset(&blocked);
    sigemptyset(&added);
    for (const int number : signalNumbers) {
        sigaddset(&blocked, number);
        if (sigismember(&pending, number) == 0) {
            sigaddset(&added, number);
        }
    }
    pthread_sigmask(SIG_BLOCK, &blocked, &hostMask);
}

velnor::SignalBlock::~SignalBlock() {
    pthread_sigmask(SIG_SETMASK, &hostMask, nullptr);
}

void velnor::SignalBlock::discardNew() const {
    const timespec atOnce{};
    while (sigtimedwait(&added, nullptr, &atOnce) > 0) {
    }
}
