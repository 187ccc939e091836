// What --version says.
#ifndef VELNOR_TOOL_VERSION_H
#define VELNOR_TOOL_VERSION_H

#include <string>

namespace tool {

// One line each: this release, and the Qt and the zint that are loaded.
std::string versions();

} // namespace tool

#endif
