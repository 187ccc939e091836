// How libFuzzer lets a target change an input in its own way, and the way that it has itself.
#ifndef VELNOR_TESTS_FUZZ_MUTATOR_H
#define VELNOR_TESTS_FUZZ_MUTATOR_H

#include <cstddef>
#include <cstdint>

extern "C" {

// Changes `size` bytes of a buffer of `room` bytes; returns how many there are then.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                    unsigned seed);
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

} // extern "C"

#endif
