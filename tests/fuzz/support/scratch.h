// Files of a run. They lie in memory where the machine has a file system there, and are removed
// with their folder when the process ends.
#ifndef VELNOR_TESTS_FUZZ_SCRATCH_H
#define VELNOR_TESTS_FUZZ_SCRATCH_H

#include <set>
#include <string>
#include <string_view>

namespace fuzz {

// For what libraries leave in a user's home.
std::string homeFolder();

// The folder of the files that a target writes and asks for.
std::string workFolder();
std::string pathOf(std::string_view name);

void writeFile(std::string_view name, std::string_view bytes);
// Empty where there is no such file.
std::string readFile(std::string_view name);
bool exists(std::string_view name);
void removeFile(std::string_view name);

// Nothing is in the work folder but files of these names.
bool holdsNothingBut(const std::set<std::string>& names);

} // namespace fuzz

#endif
