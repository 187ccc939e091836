#include "batch/column.h"

#include "text.h"

#include <algorithm>

namespace {

// As in "object.property".
bool hasTwoParts(const std::string& name) {
    return std::count(name.begin(), name.end(), '.') == 1 && name.front() != '.' &&
           name.back() != '.';
}

bool isTagName(const std::string& name) {
    return !name.empty() && name.find('.') == std::string::npos && tool::toLatin1(name);
}

} // namespace

std::optional<tool::Setting> tool::columnSetting(const std::string& column,
                                                 const std::string& value) {
    if (!column.empty() && column.front() == '@') {
        return makeSetting(Setting::Kind::Link, column.substr(1), value);
    }
    if (hasTwoParts(column)) {
        return makeSetting(Setting::Kind::Object, column, value);
    }
    if (isTagName(column)) {
        return makeSetting(Setting::Kind::Tag, column, value);
    }
    return std::nullopt;
}
