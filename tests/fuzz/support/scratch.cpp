#include "support/scratch.h"

#include "support/check.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace files = std::filesystem;

namespace {

// VELNOR_FUZZ_SCRATCH is for whoever removes what processes that were ended left behind.
files::path baseFolder() {
    if (const char* const wanted = std::getenv("VELNOR_FUZZ_SCRATCH")) {
        return wanted;
    }
    return access("/dev/shm", W_OK) == 0 ? files::path("/dev/shm") : files::temp_directory_path();
}

class Folder {
public:
    Folder() : owner(getpid()) {
        std::string name = (baseFolder() / "velnor-fuzz-XXXXXX").string();
        MUST(mkdtemp(name.data()) != nullptr);
        path = name;
        files::create_directory(path / "home");
        files::create_directory(path / "work");
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    ~Folder() {
        std::error_code ignored;
        if (getpid() == owner) {
            files::remove_all(path, ignored);
        }
    }

    files::path path;

private:
    pid_t owner;
};

const files::path& folder() {
    static const Folder made;
    return made.path;
}

} // namespace

std::string fuzz::homeFolder() {
    return folder() / "home";
}

std::string fuzz::workFolder() {
    return folder() / "work";
}

std::string fuzz::pathOf(std::string_view name) {
    return folder() / "work" / name;
}

void fuzz::writeFile(std::string_view name, std::string_view bytes) {
    std::ofstream file(pathOf(name), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    MUST(file.good());
}

std::string fuzz::readFile(std::string_view name) {
    std::ifstream file(pathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool fuzz::exists(std::string_view name) {
    return files::exists(pathOf(name));
}

void fuzz::removeFile(std::string_view name) {
    files::remove(pathOf(name));
}

bool fuzz::holdsNothingBut(const std::set<std::string>& names) {
    for (const auto& entry : files::directory_iterator(folder() / "work")) {
        if (names.count(entry.path().filename().string()) == 0) {
            return false;
        }
    }
    return true;
}
