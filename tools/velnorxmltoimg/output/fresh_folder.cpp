#include "output/fresh_folder.h"

#include "failure.h"

#include <array>
#include <csignal>

namespace {

constexpr std::array<int, 3> EndingSignals = {SIGHUP, SIGINT, SIGTERM};

volatile std::sig_atomic_t heldSignal = 0;

extern "C" void holdSignal(int number) {
    heldSignal = number;
}

QString hiddenName(const QString& parent) {
    return parent + QLatin1String("/.velnorxmltoimg-XXXXXX");
}

} // namespace

tool::HeldSignals::HeldSignals() {
    struct sigaction holding {};
    holding.sa_handler = holdSignal;
    holding.sa_flags = SA_RESTART;
    sigemptyset(&holding.sa_mask);
    for (size_t i = 0; i < EndingSignals.size(); ++i) {
        sigaction(EndingSignals[i], nullptr, &earlier[i]);
        // A program under nohup goes on ignoring the signal.
        if (earlier[i].sa_handler != SIG_IGN) {
            sigaction(EndingSignals[i], &holding, nullptr);
        }
    }
}

tool::HeldSignals::~HeldSignals() {
    for (size_t i = 0; i < EndingSignals.size(); ++i) {
        sigaction(EndingSignals[i], &earlier[i], nullptr);
    }
    if (heldSignal != 0) {
        const int number = heldSignal;
        heldSignal = 0;
        std::raise(number);
    }
}

tool::FreshFolder::FreshFolder() {
    if (!folder.isValid()) {
        throw Failure(ExitCode::NotWritten,
                      "cannot make a temporary folder: " + folder.errorString().toStdString());
    }
}

tool::FreshFolder::FreshFolder(const QString& parent) : folder(hiddenName(parent)) {
    if (!folder.isValid()) {
        throw Failure(ExitCode::NotWritten, "cannot write into '" + parent.toStdString() +
                                                "': " + folder.errorString().toStdString());
    }
}
