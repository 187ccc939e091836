// What a layout is made of before it is read.
#ifndef VELNOR_TOOL_DOCUMENT_SOURCE_H
#define VELNOR_TOOL_DOCUMENT_SOURCE_H

#include "setting.h"

#include <string>
#include <vector>

namespace tool {

struct DocumentSource {
    std::string name;   // as the user gave it, for messages
    std::string path;   // the same, but for standard input
    std::string images; // folders as the library takes them
    std::string fonts;
    std::vector<std::string> paramFiles;
    std::vector<Setting> settings; // in their order, behind those of the parameter files
};

} // namespace tool

#endif
