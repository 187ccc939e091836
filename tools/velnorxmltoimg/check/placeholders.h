// Placeholders in texts: %name%.
#ifndef VELNOR_TOOL_PLACEHOLDERS_H
#define VELNOR_TOOL_PLACEHOLDERS_H

#include <QString>

#include <vector>

namespace tool {

struct Placeholder {
    QString name; // without its percent signs
    int at;       // where its first percent sign stands
};

// Those of a text. A single percent sign, "5 % to 10 %" and the bytes of an encoded address, such as
// "a%20b%20c", are none.
std::vector<Placeholder> placeholdersIn(const QString& text);

} // namespace tool

#endif
