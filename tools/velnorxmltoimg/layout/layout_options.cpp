#include "layout/layout_options.h"

#include "command_options.h"

namespace {

using tool::Setting;

// What the command line names is set in its order.
tool::CommandOptions::Take intoSettings(std::vector<Setting>& settings, Setting::Kind kind) {
    return [&settings, kind](const std::string& text) {
        settings.push_back(tool::parseSetting(kind, text));
    };
}

} // namespace

void tool::addLayoutOptions(CommandOptions& command, LayoutOptions& options) {
    command.operand("LAYOUT", options.document, "The layout document; - is standard input");
}

void tool::addValueOptions(CommandOptions& command, LayoutOptions& options) {
    command.group("Values");
    command.values("--tag", intoSettings(options.settings, Setting::Kind::Tag), "NAME=VALUE",
                   "Replace the placeholder %NAME%; the value is XML");
    command.values("--set", intoSettings(options.settings, Setting::Kind::Object),
                   "OBJECT.PROPERTY=VALUE", "Set an element of the item or canvas of that id");
    command.values("--link", intoSettings(options.settings, Setting::Kind::Link),
                   "OBJECT.NAME=VALUE", "Set the element whose attribute link is NAME");
    command.values(
        "--params", [&options](const std::string& file) { options.paramFiles.push_back(file); },
        "FILE", "Take values from a parameter file");
    command.group("Files");
    command.value("--images", options.images, "DIR", "Look for all pictures in this folder");
    command.value("--fonts", options.fonts, "DIR",
                  "Take fonts from this folder, not from \"fonts\" beside the document");
}
