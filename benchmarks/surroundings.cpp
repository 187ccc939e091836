#include "surroundings.h"

#include <QByteArray>

#include <algorithm>

void bench::isolate(const QString& scratch) {
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                             "XDG_RUNTIME_DIR", "TMPDIR"}) {
        qputenv(name, scratch.toLocal8Bit());
    }
    qputenv("FONTCONFIG_FILE", BENCH_FONT_SETTINGS);
    for (const char* name : {"FONTCONFIG_PATH", "FC_LANG", "FREETYPE_PROPERTIES", "QT_FONT_DPI",
                             "QT_SCALE_FACTOR", "QT_PLUGIN_PATH"}) {
        qunsetenv(name);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

namespace {

std::string takeFirst(int& argc, char** argv, const std::string& prefix, bool wholly) {
    char** const end = argv + argc;
    char** const found = std::find_if(argv + 1, end, [&](const char* argument) {
        const std::string text(argument);
        return wholly ? text == prefix : text.compare(0, prefix.size(), prefix) == 0;
    });
    if (found == end) {
        return {};
    }
    std::string argument = *found;
    std::copy(found + 1, end, found);
    --argc;
    argv[argc] = nullptr;
    return argument;
}

} // namespace

std::string bench::takeOption(int& argc, char** argv, const std::string& name) {
    const std::string prefix = "--" + name + "=";
    const std::string argument = takeFirst(argc, argv, prefix, false);
    return argument.empty() ? argument : argument.substr(prefix.size());
}

bool bench::takeFlag(int& argc, char** argv, const std::string& name) {
    return !takeFirst(argc, argv, "--" + name, true).empty();
}
