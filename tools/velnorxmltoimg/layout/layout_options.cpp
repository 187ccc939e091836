#include "layout/layout_options.h"

#include <CLI/CLI.hpp>

namespace {

using tool::Setting;

void addSettingOption(CLI::App& command, std::vector<Setting>& settings, const std::string& flag,
                      const std::string& form, Setting::Kind kind, const std::string& description) {
    const auto take = [&settings, kind](const std::string& text) {
        try {
            settings.push_back(tool::parseSetting(kind, text));
        } catch (const tool::Failure& failure) {
            throw CLI::ValidationError(failure.what());
        }
    };
    command
        .add_option_function<std::vector<std::string>>(
            flag,
            [take](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) {
                    take(text);
                }
            },
            description)
        ->type_name(form)
        ->expected(1)
        ->take_all()
        ->group("Values");
}

} // namespace

void tool::addValueOptions(CLI::App& command, LayoutOptions& options) {
    addSettingOption(command, options.settings, "--tag", "NAME=VALUE", Setting::Kind::Tag,
                     "Replace the placeholder %NAME%; the value is XML");
    addSettingOption(command, options.settings, "--set", "OBJECT.PROPERTY=VALUE",
                     Setting::Kind::Object, "Set an element of the item or canvas of that id");
    addSettingOption(command, options.settings, "--link", "OBJECT.NAME=VALUE", Setting::Kind::Link,
                     "Set the element whose attribute link is NAME");
    command.add_option("--params", options.paramFiles, "Take values from a parameter file")
        ->type_name("FILE")
        ->expected(1)
        ->take_all()
        ->group("Values");
    command.add_option("--images", options.images, "Look for all pictures in this folder")
        ->type_name("DIR")
        ->group("Files");
    command
        .add_option("--fonts", options.fonts,
                    "Take fonts from this folder, not from \"fonts\" beside the document")
        ->type_name("DIR")
        ->group("Files");
}

void tool::addLayoutOptions(CLI::App& command, LayoutOptions& options) {
    command.add_option("LAYOUT", options.document, "The layout document; - is standard input")
        ->required()
        ->type_name("");
    addValueOptions(command, options);
}
