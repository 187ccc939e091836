#include "batch/shard.h"

#include "failure.h"

#include <charconv>
#include <optional>
#include <string_view>

namespace {

std::optional<std::uint64_t> parseNumber(std::string_view text) {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

} // namespace

tool::Shard tool::parseShard(const std::string& text) {
    const size_t slash = text.find('/');
    if (slash != std::string::npos) {
        const auto index = parseNumber(std::string_view(text).substr(0, slash));
        const auto count = parseNumber(std::string_view(text).substr(slash + 1));
        if (index && count && *index >= 1 && *index <= *count) {
            return {*index, *count};
        }
    }
    throw Failure(ExitCode::Usage,
                  "--shard: '" + text + "' is not of the form I/N with I from 1 to N");
}
