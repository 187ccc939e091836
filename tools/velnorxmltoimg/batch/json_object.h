// The values of one flat JSON object.
#ifndef VELNOR_TOOL_JSON_OBJECT_H
#define VELNOR_TOOL_JSON_OBJECT_H

#include "batch/row.h"

namespace tool {

// The row's values in their order, or its fault.
void readJsonObject(const std::string& text, Row& row);

} // namespace tool

#endif
