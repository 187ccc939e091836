// Encodings at the border of the tool: everything is UTF-8 but the names that the library reads.
#ifndef VELNOR_TOOL_TEXT_H
#define VELNOR_TOOL_TEXT_H

#include <optional>
#include <string>

namespace tool {

// Whether the bytes are UTF-8 without a zero byte, which would end a text of the C interface.
bool isText(const std::string& bytes);

// Nothing where a character has no place in Latin-1.
std::optional<std::string> toLatin1(const std::string& utf8);

std::string fromLatin1(const std::string& bytes);

// Whether the UTF-8 text holds a character that steers a terminal.
bool hasControlCharacter(const std::string& utf8);

// The text on one line that does nothing to a terminal: control characters are escaped as in C.
std::string printable(const std::string& utf8);

} // namespace tool

#endif
