#include "command_line.h"
#include "commands/commands.h"
#include "json.h"
#include "layout/document_file.h"
#include "layout/param_list.h"
#include "text.h"

#include <iostream>
#include <memory>

namespace {

struct Options {
    std::string file;
    bool json = false;
};

// One line a value, whatever it holds.
std::string onOneLine(const std::string& value) {
    std::string line;
    for (const char character : value) {
        line += character == '\\' ? std::string("\\\\") : std::string(1, character);
    }
    return tool::printable(line);
}

tool::ExitCode showParams(const Options& options) {
    tool::requireReadable(options.file);
    for (const tool::Param& param : tool::readParams(options.file)) {
        if (options.json) {
            tool::printLine(std::cout, {{"name", param.name}, {"value", param.value}});
        } else {
            std::cout << tool::printable(param.name) << '\t' << onOneLine(param.value) << '\n';
        }
    }
    return tool::ExitCode::Done;
}

} // namespace

void tool::addParams(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command = line.add("params", "List the values of a parameter file",
                                      [options] { return showParams(*options); });
    command.operand("FILE", options->file, "The parameter file");
    command.flag("--json", options->json, "As one JSON object a line");
    command.footer(
        "One value a line, its name (object.link) and the value with a tabulator between them.\n"
        "Control characters and backslashes of a value are escaped: \\n, \\t, \\x1b, \\\\.\n"
        "\n"
        "Example:\n"
        "  velnorxmltoimg params guest.xml");
}
