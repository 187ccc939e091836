#include "measurements.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <malloc.h>

namespace fs = std::filesystem;

namespace soak {

namespace {

constexpr size_t BytesPerKiB = 1024;

// A line is "RssAnon:     1234 kB".
long statusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, name.size() + 1, name + ':') == 0) {
            return std::stol(line.substr(name.size() + 1));
        }
    }
    throw std::runtime_error("/proc/self/status has no " + name);
}

// Those of Qt's own pool. It converts large pictures in them, as many as there are processors, and
// ends them after 30 seconds without work.
long pooledThreads() {
    long count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/task")) {
        std::ifstream file(entry.path() / "comm");
        std::string name;
        std::getline(file, name);
        count += name == "Thread (pooled)" ? 1 : 0;
    }
    return count;
}

long openDescriptors() {
    long count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count - 1; // the one that read the folder
}

long heldMemory() {
    const struct mallinfo2 memory = mallinfo2();
    return static_cast<long>((memory.uordblks + memory.hblkhd) / BytesPerKiB);
}

} // namespace

Measurement measureProcess() {
    Measurement now;
    now.resident = statusLine("VmRSS");
    malloc_trim(0);
    now.anonymous = statusLine("RssAnon");
    now.held = heldMemory();
    const long pooled = pooledThreads();
    now.descriptors = openDescriptors() - pooled; // each waits on one
    now.threads = statusLine("Threads") - pooled;
    return now;
}

} // namespace soak
