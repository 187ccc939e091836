// The process around the library: a host without Qt and without the machine's own fonts.
#include "support/check.h"
#include "support/scratch.h"
#include "support/target.h"

#include <velnorxmltoimg.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace {

void isolate() {
    const std::string home = fuzz::homeFolder();
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                             "XDG_RUNTIME_DIR", "TMPDIR"}) {
        MUST(setenv(name, home.c_str(), 1) == 0);
    }
    MUST(setenv("FONTCONFIG_FILE", VELNOR_FONTS_CONF, 1) == 0);
    for (const char* name : {"FONTCONFIG_PATH", "FC_LANG", "FREETYPE_PROPERTIES", "QT_FONT_DPI",
                             "QT_SCALE_FACTOR", "QT_PLUGIN_PATH"}) {
        MUST(unsetenv(name) == 0);
    }
}

void startLibrary() {
    std::thread(xmlToImgInitializeQtNoReturn).detach();
    while (xmlToImgQtInitialized() != 1) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // Registered once rather than for each input.
    MUST(xmlToImgSetEmbeddedFontKeepFlag(1) == 1);
}

} // namespace

int LLVMFuzzerInitialize(int*, char***) {
    isolate();
    startLibrary();
    return 0;
}
