#include "batch/ending_signals.h"

#include <sys/signalfd.h>

tool::EndingSignals::EndingSignals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        // A program under nohup goes on ignoring the signal.
        if (action.sa_handler != SIG_IGN) {
            sigaddset(&ending, number);
        }
    }
    sigprocmask(SIG_BLOCK, &ending, &earlier);
    signals = Descriptor(signalfd(-1, &ending, SFD_NONBLOCK | SFD_CLOEXEC));
    // Who reads no longer what is written is told by the result of writing.
    std::signal(SIGPIPE, SIG_IGN);
}

tool::EndingSignals::~EndingSignals() {
    sigprocmask(SIG_SETMASK, &earlier, nullptr);
    if (taken != 0) {
        std::raise(taken);
    }
}

bool tool::EndingSignals::take() {
    signalfd_siginfo information{};
    if (read(signals.get(), &information, sizeof(information)) ==
        static_cast<ssize_t>(sizeof(information))) {
        taken = static_cast<int>(information.ssi_signo);
    }
    return taken != 0;
}
