#include "command_line.h"

#include "version.h"

#include <CLI/CLI.hpp>

namespace {

std::string wordsOf(const CLI::App& app, const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) {
        return error.what();
    }
    const std::vector<std::string> unknown = app.remaining();
    return unknown.empty() ? "a command is required; --help lists them"
                           : "'" + unknown.front() + "' is no command; --help lists them";
}

} // namespace

tool::CommandLine::CommandLine(const std::string& program, const std::string& description,
                               const std::string& footer)
    : app(std::make_unique<CLI::App>(description, program)) {
    app->footer(footer);
    app->set_version_flag("--version", versions, "Show the versions of tool, Qt and zint");
    app->set_help_flag("-h,--help", "Show this help");
    app->require_subcommand(1);
    app->get_formatter()->label("SUBCOMMAND", "COMMAND");
}

tool::CommandLine::~CommandLine() = default;

tool::CommandOptions tool::CommandLine::add(const std::string& command,
                                            const std::string& description, const Action& action) {
    CLI::App* added = app->add_subcommand(command, description);
    added->group("Commands");
    added->callback([this, action] { chosen = action; });
    return CommandOptions(*added);
}

tool::CommandOptions tool::CommandLine::addHidden(const std::string& command,
                                                  const std::string& description,
                                                  const Action& action) {
    const CommandOptions options = add(command, description, action);
    app->get_subcommand(command)->group("");
    return options;
}

tool::Action tool::CommandLine::parse(int argc, char** argv) {
    try {
        app->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // The answers to --help and --version come as errors too.
        if (error.get_exit_code() != 0) {
            throw Failure(ExitCode::Usage, wordsOf(*app, error));
        }
        app->exit(error);
        return [] { return ExitCode::Done; };
    }
    return chosen;
}
