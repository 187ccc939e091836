// What a fuzzer, or the program that replays inputs, calls. Each target defines the second function;
// the first one is the same for all.
#ifndef VELNOR_TESTS_FUZZ_TARGET_H
#define VELNOR_TESTS_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>

extern "C" {

// Starts the library's application once, with the fonts of the tests alone.
int LLVMFuzzerInitialize(int* argc, char*** argv);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

} // extern "C"

#endif
