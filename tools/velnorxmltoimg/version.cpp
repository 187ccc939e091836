#include "version.h"

#include <QtGlobal>

#include <zint.h>

namespace {

// zint gives 2.11.1 as 21101, with nothing to tell a missing part from a zero.
std::string zintVersion() {
    const int version = ZBarcode_Version();
    return std::to_string(version / 10000) + '.' + std::to_string(version / 100 % 100) + '.' +
           std::to_string(version % 100);
}

} // namespace

std::string tool::versions() {
    return std::string("velnorxmltoimg ") + VELNOR_TOOL_VERSION + "\nQt " + qVersion() + "\nzint " +
           zintVersion();
}
