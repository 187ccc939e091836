// The options that say which document is meant, where its files lie and which values it gets.
#ifndef VELNOR_TOOL_LAYOUT_OPTIONS_H
#define VELNOR_TOOL_LAYOUT_OPTIONS_H

#include "layout/setting.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tool {

struct LayoutOptions {
    std::string document;          // "-": standard input
    std::vector<Setting> settings; // in the order of the command line
    std::vector<std::string> paramFiles;
    std::string images;
    std::string fonts;
};

// --tag, --set, --link, --params, --images, --fonts
void addValueOptions(CLI::App& command, LayoutOptions& options);

// LAYOUT and the options above
void addLayoutOptions(CLI::App& command, LayoutOptions& options);

} // namespace tool

#endif
