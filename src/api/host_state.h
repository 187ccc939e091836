// What a thread of the host may have set for itself, and what would change the dots or break a call
// off in its middle.
#ifndef VELNOR_API_HOST_STATE_H
#define VELNOR_API_HOST_STATE_H

#include "files/signal_block.h"

#include <cfenv>

namespace velnor {

// While this lives, the calling thread cannot be cancelled, rounds to nearest, and raises no signal
// for a floating-point exception, for a file beyond the host's limit, such as fontconfig's, nor for a
// message of libpng or libjpeg on a standard error without a reader. Then it has its own state again,
// and a cancellation that came meanwhile takes effect at its next cancellation point.
class HostState {
public:
    HostState();
    ~HostState();
    HostState(const HostState&) = delete;
    HostState& operator=(const HostState&) = delete;

private:
    SignalBlock blockedSignals{SIGPIPE, SIGXFSZ};
    std::fenv_t floatingPoint{};
    int cancellation = 0;
};

} // namespace velnor

#endif
