#include "isolation.h"

#include <velnorxmltoimg.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace golden {

namespace {

void setVariable(const char* name, const QByteArray& value) {
    if (!qputenv(name, value)) {
        throw std::runtime_error("cannot set an environment variable");
    }
}

} // namespace

Isolation::Isolation() {
    if (!folder.isValid()) {
        throw std::runtime_error("cannot make a scratch folder");
    }
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                             "XDG_RUNTIME_DIR", "TMPDIR"}) {
        setVariable(name, folder.path().toLocal8Bit());
    }
    setVariable("FONTCONFIG_FILE", GOLDEN_FOLDER "/fonts.conf");
    for (const char* name : {"FONTCONFIG_PATH", "FC_LANG", "FREETYPE_PROPERTIES", "QT_FONT_DPI",
                             "QT_SCALE_FACTOR", "QT_PLUGIN_PATH"}) {
        qunsetenv(name);
    }
}

void startLibrary() {
    std::thread(xmlToImgInitializeQtNoReturn).detach();
    while (xmlToImgQtInitialized() != 1) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace golden
