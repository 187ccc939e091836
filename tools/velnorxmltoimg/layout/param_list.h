// The values of a parameter file, as the library reads them.
#ifndef VELNOR_TOOL_PARAM_LIST_H
#define VELNOR_TOOL_PARAM_LIST_H

#include <string>
#include <vector>

namespace tool {

struct Param {
    std::string name; // "object.link"
    std::string value;
};

// Fails with UnreadableDocument for what is no parameter file.
std::vector<Param> readParams(const std::string& file);

} // namespace tool

#endif
