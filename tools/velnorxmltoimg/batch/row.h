// One row of data, whatever kind of file it comes from.
#ifndef VELNOR_TOOL_ROW_H
#define VELNOR_TOOL_ROW_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tool {

struct Value {
    std::string column;
    std::string text;
};

struct Row {
    std::uint64_t number; // from 1, over the whole data
    std::uint64_t line;   // of the data, where the row begins
    std::vector<Value> values;
    std::optional<std::string> fault; // why it is no good row; there are no values then

    // Null where the row has no such column.
    const std::string* find(const std::string& column) const {
        for (const Value& value : values) {
            if (value.column == column) {
                return &value.text;
            }
        }
        return nullptr;
    }
};

} // namespace tool

#endif
