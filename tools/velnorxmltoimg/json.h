// JSON that keeps the order in which it is made, one object a line.
#ifndef VELNOR_TOOL_JSON_H
#define VELNOR_TOOL_JSON_H

#include <nlohmann/json.hpp>

#include <ostream>

namespace tool {

using Json = nlohmann::ordered_json;

// Bytes that are not UTF-8 become replacement characters.
inline void printLine(std::ostream& stream, const Json& json) {
    constexpr int OneLine = -1;
    stream << json.dump(OneLine, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace tool

#endif
