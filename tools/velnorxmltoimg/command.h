// The commands of the tool. Each adds itself to the command line; when it is the one that was asked
// for, it stores what is to be done.
#ifndef VELNOR_TOOL_COMMAND_H
#define VELNOR_TOOL_COMMAND_H

#include "failure.h"

#include <functional>

namespace CLI {
class App;
}

namespace tool {

using Action = std::function<ExitCode()>;

void addRender(CLI::App& app, Action& action);
void addCheck(CLI::App& app, Action& action);
void addFonts(CLI::App& app, Action& action);
void addParams(CLI::App& app, Action& action);
void addSettings(CLI::App& app, Action& action);
void addBoxes(CLI::App& app, Action& action);
void addBatch(CLI::App& app, Action& action);
void addWatch(CLI::App& app, Action& action);

} // namespace tool

#endif
