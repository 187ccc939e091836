// The C interface as this host uses it.
#ifndef VELNOR_TESTS_SOAK_LIBRARY_H
#define VELNOR_TESTS_SOAK_LIBRARY_H

#include <velnorxmltoimg.h>

#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace soak {

struct HandlerDeleter {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};
using Handler = std::unique_ptr<void, HandlerDeleter>;

// A text in UTF-16 without a terminating zero: a function that looks for one reads too far.
class Wide {
public:
    explicit Wide(const std::string& utf8) {
        const std::u16string text = std::filesystem::path(utf8).u16string();
        units.assign(text.begin(), text.end());
    }

    const unsigned short* data() const { return units.data(); }
    int size() const { return static_cast<int>(units.size()); }

private:
    std::vector<unsigned short> units;
};

inline void startLibrary() {
    std::thread(xmlToImgInitializeQtNoReturn).detach();
    while (xmlToImgQtInitialized() != 1) {
        std::this_thread::yield();
    }
}

} // namespace soak

#endif
