#include "options.h"

#include <limits>
#include <random>
#include <stdexcept>
#include <string>

namespace soak {

namespace {

constexpr unsigned long MaximumThreads = 64;
constexpr unsigned long MaximumMinutes = 60 * 24 * 365;

unsigned long numberFrom(const std::string& text, unsigned long maximum) {
    size_t used = 0;
    const unsigned long number = std::stoul(text, &used);
    if (used != text.size() || text.front() == '-' || number > maximum) {
        throw std::invalid_argument(text);
    }
    return number;
}

void apply(Options& options, const std::string& name, const std::string& value) {
    if (name == "--images") {
        options.images = static_cast<long>(numberFrom(value, std::numeric_limits<long>::max()));
    } else if (name == "--minutes") {
        options.minutes = static_cast<long>(numberFrom(value, MaximumMinutes));
    } else if (name == "--seed") {
        const auto maximum = std::numeric_limits<std::uint32_t>::max();
        options.seed = static_cast<std::uint32_t>(numberFrom(value, maximum));
    } else if (name == "--threads") {
        options.threads = static_cast<int>(numberFrom(value, MaximumThreads));
    } else {
        throw std::invalid_argument(name);
    }
}

} // namespace

Options optionsFrom(int argc, char** argv) {
    Options options{};
    options.seed = std::random_device()();
    if (argc % 2 == 0) {
        throw std::invalid_argument(argv[argc - 1]);
    }
    for (int i = 1; i < argc; i += 2) {
        apply(options, argv[i], argv[i + 1]);
    }
    return options;
}

} // namespace soak
