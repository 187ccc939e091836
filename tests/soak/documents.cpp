#include "documents.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace soak {

namespace {

bool isParameterFile(const fs::path& path) {
    return path.stem().extension() == ".params";
}

std::vector<std::string> objectsOf(const fs::path& layout) {
    std::ifstream file(layout);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::string attribute = " id=\"";
    std::vector<std::string> objects;
    for (size_t at = text.find(attribute); at != std::string::npos; at = text.find(attribute, at)) {
        at += attribute.size();
        objects.push_back(text.substr(at, text.find('"', at) - at));
    }
    return objects;
}

Document documentOf(const fs::path& layout, const char* images, const char* fonts,
                    const char* valuesSuffix) {
    fs::path values = layout;
    values.replace_extension(valuesSuffix);
    return {layout.string(),   images, fonts, fs::exists(values) ? values.string() : "",
            objectsOf(layout), true};
}

// Sorted, so that a seed means the same on every file system.
std::vector<fs::path> layoutsIn(const char* folder) {
    std::vector<fs::path> layouts;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".xml" && !isParameterFile(entry.path())) {
            layouts.push_back(entry.path());
        }
    }
    if (layouts.empty()) {
        throw std::runtime_error(std::string("no documents in ") + folder);
    }
    std::sort(layouts.begin(), layouts.end());
    return layouts;
}

} // namespace

Documents findDocuments(const std::string& folder) {
    Documents documents;
    for (const fs::path& layout : layoutsIn(VELNOR_EXAMPLE_LAYOUTS)) {
        documents.examples.push_back(documentOf(layout, "", "", ".values"));
    }
    for (const fs::path& layout : layoutsIn(VELNOR_GOLDEN_CASES)) {
        documents.golden.push_back(
            documentOf(layout, VELNOR_GOLDEN_IMAGES, VELNOR_TEST_FONTS, ".tags"));
    }
    documents.broken = writeBrokenDocuments(folder);
    return documents;
}

} // namespace soak
