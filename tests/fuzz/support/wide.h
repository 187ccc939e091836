// UTF-16 texts from the bytes of an input.
#ifndef VELNOR_TESTS_FUZZ_WIDE_H
#define VELNOR_TESTS_FUZZ_WIDE_H

#include "support/buffers.h"

#include <string>
#include <string_view>

namespace fuzz {

using WideText = Text<unsigned short>;
using WideString = std::basic_string<unsigned short>;

// ASCII stays what it is. Each byte beyond gives a unit of the range 0x8000 to 0xFFFF, so that
// surrogates come about, in pairs and alone.
WideString unitsOf(std::string_view bytes);

} // namespace fuzz

#endif
