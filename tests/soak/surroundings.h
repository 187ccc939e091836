// Folders of this process alone, so that every file in them is one that somebody left.
#ifndef VELNOR_TESTS_SOAK_SURROUNDINGS_H
#define VELNOR_TESTS_SOAK_SURROUNDINGS_H

#include <filesystem>
#include <string>

namespace soak {

class Surroundings {
public:
    // Sets environment variables: to be made before the first other thread.
    Surroundings();
    ~Surroundings();
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    std::string outputFolder() const { return (root / "output").string(); }
    // For files that this host makes itself.
    std::string documentFolder() const { return (root / "documents").string(); }

    // Files in the folder of pictures, and in those for temporary files and for the user's.
    long filesLeft() const;

private:
    std::filesystem::path root;
};

} // namespace soak

#endif
