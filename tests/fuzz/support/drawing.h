// Rendering a document, with everything that must hold of it.
#ifndef VELNOR_TESTS_FUZZ_DRAWING_H
#define VELNOR_TESTS_FUZZ_DRAWING_H

#include <set>
#include <string>

namespace fuzz {

// Renders to a file of that name in the work folder and returns its content, which is empty where
// there is no picture. `others`: the other files that the target has put there.
std::string draw(void* handler, const std::string& name, const std::set<std::string>& others);

// The same; drawing once more must make the same file. Leaves no picture behind.
std::string drawTwice(void* handler, const std::string& name, const std::set<std::string>& others);

} // namespace fuzz

#endif
