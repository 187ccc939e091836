// What ends a command early, and the exit codes of the tool.
#ifndef VELNOR_TOOL_FAILURE_H
#define VELNOR_TOOL_FAILURE_H

#include <stdexcept>
#include <string>

namespace tool {

// Part of the interface: scripts go by them, and the man page lists them.
enum class ExitCode {
    Done = 0,
    SomeFailed = 1,
    Usage = 2,
    UnreadableDocument = 3,
    Findings = 4, // of `check`, under --werror
    NotWritten = 5
};

// One line for standard error.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode exitCode, const std::string& message)
        : std::runtime_error(message), code(exitCode) {}

    const ExitCode code;
};

} // namespace tool

#endif
