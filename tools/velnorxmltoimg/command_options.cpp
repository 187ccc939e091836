#include "command_options.h"

#include "failure.h"

#include <CLI/CLI.hpp>

namespace {

using tool::CommandOptions;

CommandOptions::Take asMistake(const CommandOptions::Take& take) {
    return [take](const std::string& value) {
        try {
            take(value);
        } catch (const tool::Failure& failure) {
            throw CLI::ValidationError(failure.what());
        }
    };
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : "|") + word;
    }
    return text;
}

} // namespace

void CommandOptions::place(CLI::Option& option, const std::string& form) const {
    option.type_name(form);
    if (!currentGroup.empty()) {
        option.group(currentGroup);
    }
}

void CommandOptions::operand(const std::string& name, std::string& target,
                             const std::string& description, Presence presence) {
    CLI::Option* option = app->add_option(name, target, description);
    option->required(presence == Presence::Required);
    option->type_name("");
}

void CommandOptions::operands(const std::string& name, std::vector<std::string>& target,
                              const std::string& description) {
    app->add_option(name, target, description)->type_name("");
}

void CommandOptions::value(const std::string& name, std::string& target, const std::string& form,
                           const std::string& description, Presence presence) {
    CLI::Option* option = app->add_option(name, target, description);
    option->required(presence == Presence::Required);
    place(*option, form);
}

void CommandOptions::value(const std::string& name, const Take& take, const std::string& form,
                           const std::string& description) {
    place(*app->add_option_function<std::string>(name, asMistake(take), description), form);
}

void CommandOptions::number(const std::string& name, unsigned& target, unsigned lowest,
                            unsigned highest, const std::string& form,
                            const std::string& description) {
    CLI::Option* option = app->add_option(name, target, description);
    option->check(CLI::Range(lowest, highest).description(""));
    place(*option, form);
}

void CommandOptions::choice(const std::string& name, const std::vector<std::string>& words,
                            const Take& take, const std::string& description) {
    CLI::Option* option = app->add_option_function<std::string>(name, asMistake(take), description);
    option->check(CLI::IsMember(words).description(""));
    place(*option, joined(words));
}

void CommandOptions::values(const std::string& name, const Take& take, const std::string& form,
                            const std::string& description) {
    const auto takeAll = [take = asMistake(take)](const std::vector<std::string>& all) {
        for (const std::string& one : all) {
            take(one);
        }
    };
    CLI::Option* option =
        app->add_option_function<std::vector<std::string>>(name, takeAll, description);
    option->expected(1)->take_all();
    place(*option, form);
}

void CommandOptions::flag(const std::string& name, bool& target, const std::string& description) {
    place(*app->add_flag(name, target, description), "");
}

void CommandOptions::footer(const std::string& text) {
    app->footer(text);
}
