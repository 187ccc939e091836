// The command line: its commands, and which of them is asked for.
#ifndef VELNOR_TOOL_COMMAND_LINE_H
#define VELNOR_TOOL_COMMAND_LINE_H

#include "command_options.h"
#include "failure.h"

#include <functional>
#include <memory>
#include <string>

namespace tool {

using Action = std::function<ExitCode()>;

class CommandLine {
public:
    CommandLine(const std::string& program, const std::string& description,
                const std::string& footer);
    ~CommandLine();

    CommandOptions add(const std::string& command, const std::string& description,
                       const Action& action);

    // One that help does not show.
    CommandOptions addHidden(const std::string& command, const std::string& description,
                             const Action& action);

    // What is asked for: an action that was added, or one that prints help or the version. Fails with
    // Usage.
    Action parse(int argc, char** argv);

private:
    std::unique_ptr<CLI::App> app;
    Action chosen;
};

} // namespace tool

#endif
