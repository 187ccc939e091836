// velnorxmltoimg: renders and checks layout documents from a shell.
#include "command_line.h"
#include "failure.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

int codeOf(tool::ExitCode code) {
    return static_cast<int>(code);
}

// Whatever is wrong is told in one line.
int complain(std::string message, tool::ExitCode code) {
    for (char& character : message) {
        character = character == '\n' || character == '\r' ? ' ' : character;
    }
    std::cerr << "velnorxmltoimg: " << message << std::endl;
    return codeOf(code);
}

std::string wordsOf(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) {
        return error.what();
    }
    const std::vector<std::string> unknown = app.remaining();
    return unknown.empty() ? "a command is required; --help lists them"
                           : "'" + unknown.front() + "' is no command; --help lists them";
}

// The answers to --help and --version come as errors too.
int answer(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        return app.exit(error);
    }
    return complain(wordsOf(app, error), tool::ExitCode::Usage);
}

int run(const tool::Action& action) {
    try {
        const int code = codeOf(action());
        if (!std::cout.flush()) {
            return complain("standard output cannot be written", tool::ExitCode::NotWritten);
        }
        return code;
    } catch (const tool::Failure& failure) {
        return complain(failure.what(), failure.code);
    } catch (const std::exception& exception) {
        return complain(exception.what(), tool::ExitCode::NotWritten);
    }
}

} // namespace

int main(int argc, char** argv) {
    tool::Action action;
    CLI::App app;
    app.name("velnorxmltoimg");
    try {
        tool::addCommands(app, action);
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return answer(app, error);
    }
    return run(action);
}
