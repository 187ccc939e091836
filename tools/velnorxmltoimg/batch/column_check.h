// What can be said about a batch before its first row.
#ifndef VELNOR_TOOL_COLUMN_CHECK_H
#define VELNOR_TOOL_COLUMN_CHECK_H

#include "layout/layout.h"

#include <string>
#include <vector>

namespace tool {

// Sets the fixed values. The layout can then be drawn, or a row can make it so; and its document has
// every object and link that a fixed value or a column names. Fails with UnreadableDocument or Usage.
// False where that cannot be told without the values of a row.
bool checkColumns(Layout& layout, const std::vector<Setting>& fixedSettings,
                  const std::vector<std::string>& columns);

// Sets the value of an object or a link. Fails with Usage where the document has no place for it;
// `name` is what messages call it.
void setInPlace(Layout& layout, const Setting& setting, const std::string& name);

// As messages call it.
std::string describeColumn(const std::string& column);

} // namespace tool

#endif
