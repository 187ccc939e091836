#include "support/input.h"

#include <algorithm>
#include <charconv>

std::string_view fuzz::textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

std::string_view fuzz::takeUpTo(char separator, std::string_view& input) {
    const std::size_t end = input.find(separator);
    const std::string_view part = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    return part;
}

std::uint8_t fuzz::takeByte(std::string_view& input) {
    const std::string_view byte = takeBytes(1, input);
    return byte.empty() ? std::uint8_t(0) : static_cast<std::uint8_t>(byte.front());
}

std::string_view fuzz::takeBytes(std::size_t count, std::string_view& input) {
    const std::string_view bytes = input.substr(0, count);
    input.remove_prefix(bytes.size());
    return bytes;
}

int fuzz::numberOr(std::string_view text, int fallback) {
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : fallback;
}

int fuzz::numberFrom(std::string_view input, int lowest, int highest) {
    std::uint64_t hash = 0xcbf29ce484222325; // FNV-1a, the same on every machine
    for (const char byte : input) {
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * 0x100000001b3;
    }
    const auto count = static_cast<std::uint64_t>(static_cast<std::int64_t>(highest) - lowest + 1);
    return static_cast<int>(lowest + static_cast<std::int64_t>(hash % count));
}

std::string fuzz::withoutZeros(std::string_view text) {
    std::string kept(text);
    kept.erase(std::remove(kept.begin(), kept.end(), '\0'), kept.end());
    return kept;
}
