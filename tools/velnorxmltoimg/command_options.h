// The options of one command. Whatever reads the command line is known behind this header alone: its own
// headers take longer to compile than all commands together.
#ifndef VELNOR_TOOL_COMMAND_OPTIONS_H
#define VELNOR_TOOL_COMMAND_OPTIONS_H

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace tool {

enum class Presence { Optional, Required };

class CommandOptions {
public:
    // What a value means; a Failure that it throws is told as a mistake of the command line.
    using Take = std::function<void(const std::string& value)>;

    explicit CommandOptions(CLI::App& commandApp) : app(&commandApp) {}

    // What stands without an option.
    void operand(const std::string& name, std::string& target, const std::string& description,
                 Presence presence = Presence::Required);
    void operands(const std::string& name, std::vector<std::string>& target,
                  const std::string& description);

    // Options with a value; `form` is what help shows for it.
    void value(const std::string& name, std::string& target, const std::string& form,
               const std::string& description, Presence presence = Presence::Optional);
    void value(const std::string& name, const Take& take, const std::string& form,
               const std::string& description);
    void number(const std::string& name, unsigned& target, unsigned lowest, unsigned highest,
                const std::string& form, const std::string& description);
    void choice(const std::string& name, const std::vector<std::string>& words, const Take& take,
                const std::string& description);

    // One that may be given several times.
    void values(const std::string& name, const Take& take, const std::string& form,
                const std::string& description);

    void flag(const std::string& name, bool& target, const std::string& description);

    // The heading in help of the options that follow.
    void group(const std::string& heading) { currentGroup = heading; }

    // What help says at its end.
    void footer(const std::string& text);

private:
    void place(CLI::Option& option, const std::string& form) const;

    CLI::App* app;
    std::string currentGroup;
};

} // namespace tool

#endif
