// What the name of a column says about its values.
#ifndef VELNOR_TOOL_COLUMN_H
#define VELNOR_TOOL_COLUMN_H

#include "setting.h"

#include <optional>
#include <string>

namespace tool {

// "name" replaces the placeholder %name%, "object.property" sets an element, "@object.link" one by its
// link. Nothing for a name that no document can use, such as an empty one or "Tel. no.". Fails with
// Usage for a name that begins like a link and is none, or whose object has a name beyond Latin-1.
std::optional<Setting> columnSetting(const std::string& column, const std::string& value);

} // namespace tool

#endif
