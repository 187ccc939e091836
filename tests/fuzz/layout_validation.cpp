// A layout document is validated; its printer settings and the fonts that it names are asked for.
#include "support/buffers.h"
#include "support/check.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/scratch.h"
#include "support/target.h"

#include <velnorxmltoimg.h>

#include <array>
#include <climits>

namespace {

constexpr int Untouched = INT_MIN;

std::string allMessages(void* handler, int& result) {
    fuzz::NarrowBuffer buffer(256 * 1024);
    result = xmlToImgCheckCorrect(handler, buffer.data(), buffer.size);
    MUST(fuzz::isResult(result));
    if (buffer.isUntouched()) {
        MUST(result == -1); // the document does not parse
        return {};
    }
    const std::string messages(buffer.text());
    MUST((result == 0) == messages.empty());
    MUST(buffer.isZeroFrom(messages.size()));
    return messages;
}

// Whatever the size of the buffer, it holds the beginning of the messages and zero bytes.
void checkCutMessages(void* handler, int size, const std::string& messages, int expected) {
    fuzz::NarrowBuffer buffer(size);
    MUST(xmlToImgCheckCorrect(handler, buffer.data(), size) == expected);
    if (size <= 0) {
        MUST(buffer.isUntouched());
    } else if (!buffer.isUntouched()) {
        MUST(buffer.text() == messages.substr(0, static_cast<std::size_t>(size) - 1));
        MUST(buffer.isZeroFrom(buffer.text().size()));
    } else {
        MUST(messages.empty() && expected == -1);
    }
}

std::array<int, 3> printerSettings(void* handler, int before) {
    std::array<int, 3> settings = {before, before, before};
    MUST(xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]) == 0);
    return settings;
}

void checkPrinterSettings(void* handler) {
    const auto settings = printerSettings(handler, Untouched);
    MUST(settings[1] >= -1 && settings[1] <= 1);
    MUST(settings == printerSettings(handler, 1)); // all three are written
}

bool isFlag(int value) {
    return value == 0 || value == 1;
}

void checkFontProperty(void* handler, const std::string& family) {
    int bold = Untouched;
    int italic = Untouched;
    MUST(fuzz::isResult(xmlToImgGetFontProperty(handler, family.c_str(), &bold, &italic)));
    MUST(isFlag(bold) && isFlag(italic));
    // As wide units the bytes are another family, but the call must not fail differently.
    std::basic_string<unsigned short> units;
    for (const char byte : family) {
        units.push_back(static_cast<unsigned short>(static_cast<unsigned char>(byte) * 0x101));
    }
    const fuzz::Text<unsigned short> wide(units, false);
    MUST(fuzz::isResult(
        xmlToImgGetFontPropertyUnicode(handler, wide.data(), wide.length, &bold, &italic)));
    MUST(isFlag(bold) && isFlag(italic));
}

// The first family that the document names, as it is written.
std::string fontFamilyIn(std::string_view document) {
    constexpr std::string_view Start = "<fontname>";
    const std::size_t start = document.find(Start);
    if (start == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = document.substr(start + Start.size());
    return fuzz::withoutZeros(rest.substr(0, rest.find('<')));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view document = fuzz::textOf(data, size);
    fuzz::writeFile("layout.xml", document);
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    int result = 0;
    const std::string messages = allMessages(handler.get(), result);
    const int room = static_cast<int>(messages.size()) + 2;
    checkCutMessages(handler.get(), fuzz::numberFrom(document, -1, room), messages, result);
    MUST(xmlToImgCheckCorrect(handler.get(), nullptr, room) == result);
    checkPrinterSettings(handler.get());
    checkFontProperty(handler.get(), fontFamilyIn(document));
    MUST(fuzz::holdsNothingBut({"layout.xml"}));
    return 0;
}
