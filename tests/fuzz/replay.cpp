// fuzz_TARGET_replay FILE|FOLDER...
//
// Gives a target the inputs that lie in files, without a fuzzer. Each line of a file that ends in
// ".lines" is an input of its own. Fails where there was none.
#include "support/target.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace files = std::filesystem;

namespace {

void addFiles(const files::path& path, std::vector<files::path>& found) {
    if (!files::is_directory(path)) {
        found.push_back(path);
        return;
    }
    for (const auto& entry : files::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) {
            found.push_back(entry.path());
        }
    }
}

void give(const std::string& input) {
    // A copy of exactly the input's size.
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

int replayFile(const files::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (path.extension() != ".lines") {
        give({std::istreambuf_iterator<char>(file), {}});
        return 1;
    }
    int count = 0;
    for (std::string line; std::getline(file, line); ++count) {
        give(line);
    }
    return count;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<files::path> found;
    for (int i = 1; i < argc; ++i) {
        addFiles(argv[i], found);
    }
    std::sort(found.begin(), found.end());
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (const files::path& path : found) {
        // Printed first: the last line names the input that ended the process.
        std::cout << path.string() << std::endl;
        count += replayFile(path);
    }
    std::cout << count << " inputs" << std::endl;
    return count > 0 ? 0 : 1;
}
