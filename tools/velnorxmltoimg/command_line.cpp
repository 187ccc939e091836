#include "command_line.h"

#include "version.h"

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

} // namespace

void tool::addCommands(CLI::App& app, Action& action) {
    app.description(Description);
    app.footer(Footer);
    app.set_version_flag("--version", versions, "Show the versions of tool, Qt and zint");
    app.set_help_flag("-h,--help", "Show this help");
    app.require_subcommand(1);
    addRender(app, action);
    addWatch(app, action);
    addBoxes(app, action);
    addFonts(app, action);
    addParams(app, action);
    addSettings(app, action);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    for (CLI::App* command : app.get_subcommands({})) {
        command->group("Commands");
    }
}
