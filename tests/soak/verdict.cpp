#include "verdict.h"

namespace soak {

namespace {

// Freed memory is held back from the process under AddressSanitizer, to find those who still use
// it: the process grows whatever the library does.
#ifdef VELNOR_SOAK_WITH_SANITIZERS
constexpr bool MemoryTells = false;
#else
constexpr bool MemoryTells = true;
#endif

void compare(const char* what, long before, long after, std::vector<std::string>& found) {
    if (after > before) {
        found.push_back(std::string(what) + ": " + std::to_string(before) + " before, " +
                        std::to_string(after) + " after");
    }
}

} // namespace

void Course::add(const Measurement& now) {
    if (!first) {
        first = now;
    }
    if (!warm && now.images >= WarmUpImages) {
        warm = now;
    }
    last = now;
}

bool Course::judgesMemory() const {
    return MemoryTells && warm;
}

long Course::growth() const {
    return last.anonymous - warm->anonymous;
}

long Course::heldGrowth() const {
    return last.held - warm->held;
}

std::vector<std::string> complaints(const Course& course) {
    std::vector<std::string> found;
    compare("open descriptors", course.first->descriptors, course.last.descriptors, found);
    compare("threads", course.first->threads, course.last.threads, found);
    compare("files", 0, course.last.files, found);
    if (course.judgesMemory() && course.growth() >= AllowedGrowth) {
        found.push_back("the process grew by " + std::to_string(course.growth()) + " KiB");
    }
    if (course.judgesMemory() && course.heldGrowth() >= AllowedHeld) {
        found.push_back("memory held grew by " + std::to_string(course.heldGrowth()) + " KiB");
    }
    return found;
}

std::string summary(const Course& course) {
    std::string text = complaints(course).empty() ? "passed: " : "FAILED: ";
    text += std::to_string(course.last.images) + " images, ";
    if (!course.judgesMemory()) {
        return text + "memory not judged";
    }
    return text + "since image " + std::to_string(WarmUpImages) + " " +
           std::to_string(course.growth()) + " KiB more in the process, " +
           std::to_string(course.heldGrowth()) + " KiB more held";
}

} // namespace soak
