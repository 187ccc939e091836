// How the tool says on standard error what is wrong.
#ifndef VELNOR_TOOL_COMPLAINT_H
#define VELNOR_TOOL_COMPLAINT_H

#include <string>

namespace tool {

// One line, whatever the message holds.
void complain(const std::string& message);

} // namespace tool

#endif
