// Signals that the library's own work may cause, kept from the host.
#ifndef VELNOR_FILES_SIGNAL_BLOCK_H
#define VELNOR_FILES_SIGNAL_BLOCK_H

#include <csignal>
#include <initializer_list>

namespace velnor {

// While this lives, the signals are blocked on the calling thread.
class SignalBlock {
public:
    SignalBlock(std::initializer_list<int> signalNumbers);
    ~SignalBlock();
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;

    // Discards those that have come meanwhile. One that was pending before stays for the host.
    void discardNew() const;

private:
    sigset_t added{}; // less those that were pending before
    sigset_t hostMask{};
};

} // namespace velnor

#endif
