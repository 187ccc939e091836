// Taking an input apart.
#ifndef VELNOR_TESTS_FUZZ_INPUT_H
#define VELNOR_TESTS_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

std::string_view textOf(const std::uint8_t* data, std::size_t size);

// The part before the separator; it and the separator are taken from the input. Everything where
// there is no separator.
std::string_view takeUpTo(char separator, std::string_view& input);

// The next byte; 0 at the end.
std::uint8_t takeByte(std::string_view& input);

// At most `count` bytes.
std::string_view takeBytes(std::size_t count, std::string_view& input);

// A decimal number; the fallback where the text is none.
int numberOr(std::string_view text, int fallback);

// A number from `lowest` to `highest` that depends on the whole input: two inputs of one byte's
// difference give unrelated numbers.
int numberFrom(std::string_view input, int lowest, int highest);

// A part of the input that a zero byte does not end too early for a C string.
std::string withoutZeros(std::string_view text);

} // namespace fuzz

#endif
