// Values are set and read back. The input is lines up to an empty one, then the document; without a
// document, one of our own. The first character of a line "NAME=VALUE" says what it does:
//
//   @ sets a link, ~ an object tag in UTF-16, * a link in UTF-16
//   % sets a placeholder, ^ one in UTF-16
//   ? reads an object tag, ! a link, both into buffers of VALUE units
//   & empties the dictionaries
//
// Any other line sets an object tag, or a placeholder where its name has no point. The byte 0x1F in
// a value stands for the end of a line.
#include "support/buffers.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/layout.h"
#include "support/scratch.h"
#include "support/target.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <algorithm>
#include <vector>

namespace {

// Far more than a layout sets; each line costs a look at the document.
constexpr int MostLines = 64;
constexpr int LargestBuffer = 4096;

using NarrowReader = int (*)(void*, const char*, char*, int);
using WideReader = int (*)(void*, const unsigned short*, int, unsigned short*, int);

std::string readNarrow(NarrowReader read, void* handler, const std::string& name, int size) {
    fuzz::NarrowBuffer buffer(size);
    const int result = read(handler, name.c_str(), buffer.data(), size);
    MUST(fuzz::isResult(result));
    MUST(result == read(handler, name.c_str(), nullptr, size));
    if (result != 0 || size <= 0) {
        MUST(buffer.isUntouched());
        return {};
    }
    MUST(buffer.isZeroFrom(buffer.text().size()));
    MUST(buffer.text().size() < static_cast<std::size_t>(size));
    return std::string(buffer.text());
}

void readWide(WideReader read, void* handler, std::string_view name, int size) {
    const fuzz::WideText wide(fuzz::unitsOf(name), false);
    fuzz::WideBuffer buffer(size);
    const int result = read(handler, wide.data(), wide.length, buffer.data(), size);
    MUST(fuzz::isResult(result));
    if (result != 0 || size <= 0) {
        MUST(result == -1);
        MUST(buffer.isUntouched());
        return;
    }
    MUST(buffer.text().size() < static_cast<std::size_t>(size));
    MUST(buffer.isUntouchedFrom(buffer.text().size() + 1));
}

// A smaller buffer holds the beginning of what a large one holds.
void readBoth(NarrowReader narrow, WideReader wide, void* handler, std::string_view name,
              std::string_view value) {
    const int size = std::clamp(fuzz::numberOr(value, 8), -1, LargestBuffer);
    const std::string text = fuzz::withoutZeros(name);
    const std::string whole = readNarrow(narrow, handler, text, 2 * LargestBuffer);
    const std::string cut = readNarrow(narrow, handler, text, size);
    MUST(whole.substr(0, cut.size()) == cut);
    readWide(wide, handler, name, size);
}

using NarrowSetter = int (*)(void*, const char*, const char*);
using WideSetter = int (*)(void*, const unsigned short*, int, const unsigned short*, int);

void setNarrow(NarrowSetter set, void* handler, std::string_view name, std::string_view value) {
    MUST(fuzz::isResult(
        set(handler, fuzz::withoutZeros(name).c_str(), fuzz::withoutZeros(value).c_str())));
}

void setWide(WideSetter set, void* handler, std::string_view name, std::string_view value) {
    const fuzz::WideText wideName(fuzz::unitsOf(name), false);
    const fuzz::WideText wideValue(fuzz::unitsOf(value), true);
    MUST(fuzz::isResult(set(handler, wideName.data(), wideName.length, wideValue.data(), -1)));
}

void apply(void* handler, std::string_view line) {
    constexpr std::string_view Marks = "@~*%^?!&";
    const bool isMarked = Marks.find(line.front()) != std::string_view::npos;
    const char mark = isMarked ? line.front() : ' ';
    line.remove_prefix(isMarked ? 1 : 0);
    const std::string_view name = fuzz::takeUpTo('=', line);
    std::string value(line);
    std::replace(value.begin(), value.end(), '\x1f', '\n');
    switch (mark) {
    case '@':
        return setNarrow(xmlToImgSetObjectLinkDictionary, handler, name, value);
    case '~':
        return setWide(xmlToImgSetObjectTagDictionaryUnicode, handler, name, value);
    case '*':
        return setWide(xmlToImgSetObjectLinkDictionaryUnicode, handler, name, value);
    case '%':
        return setNarrow(xmlToImgSetTagDictionary, handler, name, value);
    case '^':
        return setWide(xmlToImgSetTagDictionaryUnicode, handler, name, value);
    case '?':
        return readBoth(xmlToImgGetObjectTagDictionary, xmlToImgGetObjectTagDictionaryUnicode,
                        handler, name, value);
    case '!':
        return readBoth(xmlToImgGetObjectLinkDictionary, xmlToImgGetObjectLinkDictionaryUnicode,
                        handler, name, value);
    case '&':
        return MUST(xmlToImgClearAllDictionary(handler) == 0);
    default:
        return setNarrow(xmlToImgSetObjectTagDictionary, handler, name, value);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = fuzz::textOf(data, size);
    std::vector<std::string_view> lines;
    while (!input.empty() && input.front() != '\n' && lines.size() < MostLines) {
        lines.push_back(fuzz::takeUpTo('\n', input));
    }
    fuzz::writeFile("layout.xml", input.size() > 1 ? std::string(input)
                                                   : fuzz::layoutOf(200, 100, fuzz::LinkedItems));
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    for (const std::string_view line : lines) {
        apply(handler.get(), line);
    }
    MUST(fuzz::isResult(xmlToImgCheckCorrect(handler.get(), nullptr, 0)));
    MUST(fuzz::holdsNothingBut({"layout.xml"}));
    return 0;
}
