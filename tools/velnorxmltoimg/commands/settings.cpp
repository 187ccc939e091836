#include "command_line.h"
#include "commands/commands.h"
#include "engine/document_view.h"
#include "layout/layout.h"

#include <array>
#include <iostream>
#include <memory>

namespace {

std::string numberOr(int number, const std::string& absent) {
    return number == -1 ? absent : std::to_string(number);
}

std::string wordFor(int ejectRetract) {
    static const std::array<std::string, 2> Words = {"eject", "retract"};
    return ejectRetract == -1 ? "-" : Words.at(static_cast<size_t>(ejectRetract));
}

tool::ExitCode showSettings(const tool::LayoutOptions& options) {
    const tool::Layout layout(options);
    tool::requireDocument(layout.source());
    const tool::PrinterSettings settings = layout.printerSettings();
    std::cout << "presentation\t" << numberOr(settings.presentation, "-") << '\n'
              << "ejectRetract\t" << wordFor(settings.ejectRetract) << '\n'
              << "ejectRetractTimeout\t" << numberOr(settings.timeout, "-") << '\n';
    return tool::ExitCode::Done;
}

} // namespace

void tool::addSettings(CommandLine& line) {
    auto options = std::make_shared<LayoutOptions>();
    CommandOptions command = line.add("settings", "Show what a layout document tells the printer",
                                      [options] { return showSettings(*options); });
    addLayoutOptions(command, *options);
    addValueOptions(command, *options);
    command.footer(
        "One setting a line, its name and its value with a tabulator between them; - where\n"
        "the document does not give it.\n"
        "\n"
        "Example:\n"
        "  velnorxmltoimg settings slip.xml");
}
