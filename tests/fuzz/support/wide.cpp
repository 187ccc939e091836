#include "support/wide.h"

fuzz::WideString fuzz::unitsOf(std::string_view bytes) {
    WideString units;
    for (const char byte : bytes) {
        const unsigned value = static_cast<unsigned char>(byte);
        units.push_back(static_cast<unsigned short>(value < 0x80 ? value : value << 8U | value));
    }
    return units;
}
