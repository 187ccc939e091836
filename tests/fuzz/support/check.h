// What must hold for every input. A rule that does not ends the process, which is how a fuzzer is
// told of a finding.
#ifndef VELNOR_TESTS_FUZZ_CHECK_H
#define VELNOR_TESTS_FUZZ_CHECK_H

namespace fuzz {

// What functions of the interface give, unless they say otherwise.
constexpr bool isResult(int result) {
    return result == 0 || result == -1;
}

[[noreturn]] void fail(const char* file, int line, const char* rule);

} // namespace fuzz

#define MUST(rule) ((rule) ? (void)0 : fuzz::fail(__FILE__, __LINE__, #rule))

#endif
