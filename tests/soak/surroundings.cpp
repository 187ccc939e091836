#include "surroundings.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace fs = std::filesystem;

namespace soak {

namespace {

fs::path newFolder() {
    std::string name = (fs::temp_directory_path() / "velnor-soak-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a scratch folder");
    }
    return name;
}

void setVariable(const char* name, const std::string& value) {
    if (setenv(name, value.c_str(), 1) != 0) {
        throw std::runtime_error("cannot set an environment variable");
    }
}

long filesIn(const fs::path& folder) {
    return std::count_if(fs::recursive_directory_iterator(folder), {},
                         [](const fs::directory_entry& entry) { return !entry.is_directory(); });
}

} // namespace

Surroundings::Surroundings() : root(newFolder()) {
    for (const char* name : {"output", "documents", "temporary", "home"}) {
        fs::create_directory(root / name);
    }
    setVariable("TMPDIR", (root / "temporary").string());
    for (const char* name :
         {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
        setVariable(name, (root / "home").string());
    }
    setVariable("FONTCONFIG_FILE", VELNOR_FONT_SETTINGS);
    // It would redirect the file of settings.
    unsetenv("FONTCONFIG_SYSROOT");
}

Surroundings::~Surroundings() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
}

long Surroundings::filesLeft() const {
    return filesIn(root / "output") + filesIn(root / "temporary") + filesIn(root / "home");
}

} // namespace soak
