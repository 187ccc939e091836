#include "support/peak_memory.h"

#include <sys/resource.h>

namespace {

constexpr long KilobytesPerMegabyte = 1024;

long peakKilobytes() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

PeakMemory::PeakMemory() : atStart(peakKilobytes()) {}

long PeakMemory::risenMegabytes() const {
    return (peakKilobytes() - atStart) / KilobytesPerMegabyte;
}
