// velnorxmltoimg: renders and checks layout documents from a shell.
#include "command_line.h"
#include "commands/commands.h"
#include "complaint.h"

#include <exception>
#include <iostream>
#include <string>

namespace {

constexpr const char* Description =
    "Renders and checks layout documents for printers that print on paper from a roll.";

constexpr const char* Footer =
    "Examples:\n"
    "  velnorxmltoimg render receipt.xml -o receipt.png --tag till=07\n"
    "  velnorxmltoimg check receipt.xml\n"
    "  velnorxmltoimg batch ticket.xml --data guests.csv -o 'out/{number}.png'\n"
    "\n"
    "'velnorxmltoimg COMMAND --help' tells the options of a command.\n"
    "Exit codes: 0 done, 1 some failed, 2 usage, 3 unreadable document,\n"
    "4 findings under --werror, 5 not written.";

void addCommands(tool::CommandLine& line) {
    tool::addRender(line);
    tool::addBatch(line);
    tool::addCheck(line);
    tool::addWatch(line);
    tool::addBoxes(line);
    tool::addFonts(line);
    tool::addParams(line);
    tool::addSettings(line);
    tool::addBatchWorker(line);
}

int codeOf(tool::ExitCode code) {
    return static_cast<int>(code);
}

int fail(const std::string& message, tool::ExitCode code) {
    tool::complain(message);
    return codeOf(code);
}

int run(int argc, char** argv) {
    tool::CommandLine line("velnorxmltoimg", Description, Footer);
    addCommands(line);
    const int code = codeOf(line.parse(argc, argv)());
    if (!std::cout.flush()) {
        return fail("standard output cannot be written", tool::ExitCode::NotWritten);
    }
    return code;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const tool::Failure& failure) {
        return fail(failure.what(), failure.code);
    } catch (const std::exception& exception) {
        return fail(exception.what(), tool::ExitCode::NotWritten);
    }
}
