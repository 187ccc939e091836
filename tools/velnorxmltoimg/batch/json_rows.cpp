#include "batch/json_rows.h"

#include "batch/json_object.h"
#include "text.h"

#include <algorithm>
#include <cstring>

namespace {

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r") == std::string::npos;
}

} // namespace

const std::vector<std::string>* tool::JsonRows::columns() const {
    return keysKnown ? &firstKeys : nullptr;
}

void tool::JsonRows::feed(const char* bytes, size_t size, std::deque<Row>& rows) {
    const char* const end = bytes + size;
    while (bytes != end) {
        const auto* lineEnd =
            static_cast<const char*>(std::memchr(bytes, '\n', static_cast<size_t>(end - bytes)));
        keep(bytes, static_cast<size_t>((lineEnd == nullptr ? end : lineEnd) - bytes));
        if (lineEnd == nullptr) {
            return;
        }
        endLine(rows);
        bytes = lineEnd + 1;
    }
}

void tool::JsonRows::finish(std::deque<Row>& rows) {
    endLine(rows);
}

void tool::JsonRows::keep(const char* bytes, size_t size) {
    tooLong = tooLong || text.size() + size > LargestRow;
    if (!tooLong) {
        text.append(bytes, size);
    }
}

void tool::JsonRows::endLine(std::deque<Row>& rows) {
    if (tooLong || !isBlank(text)) {
        Row row{++rowsSeen, line, {}, {}};
        if (tooLong) {
            row.fault = "it has more than " + std::to_string(LargestRow) + " bytes";
        } else if (!isText(text)) {
            row.fault = "it is not UTF-8 text";
        } else {
            readJsonObject(text, row);
        }
        if (!row.fault && !keysKnown) {
            keysKnown = true;
            std::transform(row.values.begin(), row.values.end(), std::back_inserter(firstKeys),
                           [](const Value& value) { return value.column; });
        }
        rows.push_back(std::move(row));
    }
    text.clear();
    tooLong = false;
    ++line;
}
