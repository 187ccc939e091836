// The whole command line of the tool.
#ifndef VELNOR_TOOL_COMMAND_LINE_H
#define VELNOR_TOOL_COMMAND_LINE_H

#include "command.h"

#include <CLI/CLI.hpp>

namespace tool {

// `action` must live as long as the application.
void addCommands(CLI::App& app, Action& action);

} // namespace tool

#endif
