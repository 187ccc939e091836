// A signal that the library's own work may cause, kept from the host.
#ifndef VELNOR_FILES_HELD_SIGNAL_H
#define VELNOR_FILES_HELD_SIGNAL_H

#include <csignal>

namespace velnor {

// While this lives, the signal stays with the calling thread.
class HeldSignal {
public:
    explicit HeldSignal(int signalNumber);
    ~HeldSignal();
    HeldSignal(const HeldSignal&) = delete;
    HeldSignal& operator=(const HeldSignal&) = delete;

    // Takes back one that has come meanwhile. One that the host was waiting for already stays.
    void takeBack();

private:
    sigset_t held{};
    sigset_t hostMask{};
    bool wasPending = false;
};

} // namespace velnor

#endif
