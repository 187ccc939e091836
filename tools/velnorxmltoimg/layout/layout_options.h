// The options that say which document is meant, where its files lie and which values it gets.
#ifndef VELNOR_TOOL_LAYOUT_OPTIONS_H
#define VELNOR_TOOL_LAYOUT_OPTIONS_H

#include "setting.h"

#include <string>
#include <vector>

namespace tool {

class CommandOptions;

struct LayoutOptions {
    std::string document;          // "-": standard input
    std::vector<Setting> settings; // in the order of the command line
    std::vector<std::string> paramFiles;
    std::string images;
    std::string fonts;
};

// LAYOUT
void addLayoutOptions(CommandOptions& command, LayoutOptions& options);

// --tag, --set, --link, --params, --images, --fonts, under headings of their own: the last options
// of a command.
void addValueOptions(CommandOptions& command, LayoutOptions& options);

} // namespace tool

#endif
