// One value for a document, as the command line and data files name it.
#ifndef VELNOR_TOOL_SETTING_H
#define VELNOR_TOOL_SETTING_H

#include "failure.h"

#include <string>

namespace tool {

struct Setting {
    enum class Kind { Tag, Object, Link };

    Kind kind;
    std::string name;  // in Latin-1, as the library reads names; without percent signs
    std::string value; // in UTF-8
};

// The setting of such a name and value. Fails for texts that are not UTF-8 or hold a zero byte, and
// for names that the library cannot take: a placeholder has no point, the others have one with
// something on either side of it.
Setting makeSetting(Setting::Kind kind, const std::string& name, const std::string& value);

// From NAME=VALUE; the value may be empty and may hold further equals signs.
Setting parseSetting(Setting::Kind kind, const std::string& text);

// The option that makes such a setting with its name in UTF-8, for messages: "--set guest.text".
std::string describe(const Setting& setting);

} // namespace tool

#endif
