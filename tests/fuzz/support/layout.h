// Layout documents that targets make.
#ifndef VELNOR_TESTS_FUZZ_LAYOUT_H
#define VELNOR_TESTS_FUZZ_LAYOUT_H

#include <string>
#include <string_view>

namespace fuzz {

// A document whose canvas of that many dots holds `items`.
std::string layoutOf(int width, int height, std::string_view items);

// "<name>value</name>", or nothing where the value is empty.
std::string element(std::string_view name, std::string_view value);

// Items of every kind with links; their ids are "label", "code", "logo", "frame" and "rule".
extern const char* const LinkedItems;

} // namespace fuzz

#endif
