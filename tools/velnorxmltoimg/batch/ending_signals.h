// Signals that end the process, put off until everything is tidy.
#ifndef VELNOR_TOOL_ENDING_SIGNALS_H
#define VELNOR_TOOL_ENDING_SIGNALS_H

#include "batch/descriptor.h"

#include <csignal>

namespace tool {

// SIGHUP, SIGINT and SIGTERM wait in a descriptor. One that was taken out of it ends the process when
// this is destroyed. Workers inherit that they do not feel these signals, which often go to them too:
// the batch decides when they end.
class EndingSignals {
public:
    EndingSignals();
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    int descriptor() const { return signals.get(); }

    // Whether one has come.
    bool take();

private:
    sigset_t earlier{};
    Descriptor signals;
    int taken = 0;
};

} // namespace tool

#endif
