// Wide texts of any length and content go in, and come out into buffers of any size. The input is a
// series of steps: a byte that chooses one, then what it needs.
#include "support/buffers.h"
#include "support/check.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/layout.h"
#include "support/scratch.h"
#include "support/target.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <iterator>

namespace {

constexpr int MostSteps = 24;

// What is passed as one wide text: a pointer, and a length that may be negative.
class Argument {
public:
    Argument(fuzz::WideString units, bool terminated, bool isNull)
        : text(units, terminated), length(terminated ? -1 - text.length % 3 : text.length),
          null(isNull) {}

    const unsigned short* data() const { return null ? nullptr : text.data(); }

private:
    fuzz::WideText text;

public:
    const int length;

private:
    bool null;
};

// The first byte says how many bytes of text follow and how they are passed. The text comes either
// from a list of names that mean something or from the input.
Argument takeText(std::string_view& input) {
    static constexpr std::string_view Names[] = {"label.text", "label.size", "code.data",
                                                 "canvas.presentation"};
    const unsigned head = fuzz::takeByte(input);
    const std::size_t count = head & 0x1fU;
    const bool terminated = (head & 0x20U) != 0;
    if ((head & 0x40U) != 0) {
        return {fuzz::unitsOf(Names[count % std::size(Names)]), terminated, false};
    }
    return {fuzz::unitsOf(fuzz::takeBytes(count, input)), terminated, head == 0x80U};
}

int takeSize(std::string_view& input) {
    return static_cast<int>(fuzz::takeByte(input)) - 2;
}

void read(int (*reader)(void*, const unsigned short*, int, unsigned short*, int), void* handler,
          std::string_view& input) {
    const Argument name = takeText(input);
    const int size = takeSize(input);
    fuzz::WideBuffer buffer(size);
    const int result = reader(handler, name.data(), name.length, buffer.data(), size);
    MUST(fuzz::isResult(result));
    MUST(result == 0 ? size > 0 : buffer.isUntouched());
    if (result == 0) {
        MUST(buffer.text().size() < static_cast<std::size_t>(size));
        MUST(buffer.isUntouchedFrom(buffer.text().size() + 1));
    }
}

void set(int (*setter)(void*, const unsigned short*, int, const unsigned short*, int),
         void* handler, std::string_view& input) {
    const Argument name = takeText(input);
    const Argument value = takeText(input);
    MUST(fuzz::isResult(setter(handler, name.data(), name.length, value.data(), value.length)));
}

void listParams(void* handler, std::string_view& input) {
    const Argument path = takeText(input);
    const int size = takeSize(input);
    fuzz::WideBuffer tags(size);
    fuzz::WideBuffer values(size);
    MUST(fuzz::isResult(xmlToImgGetDictionaryFromParamFileUnicode(
        handler, path.data(), path.length, tags.data(), values.data(), size)));
}

void askForFont(void* handler, std::string_view& input) {
    const Argument family = takeText(input);
    int bold = -7;
    int italic = -7;
    const int result =
        xmlToImgGetFontPropertyUnicode(handler, family.data(), family.length, &bold, &italic);
    MUST(fuzz::isResult(result));
    MUST(bold >= 0 && bold <= 1 && italic >= 0 && italic <= 1);
}

void makeHandlers(std::string_view& input) {
    const Argument path = takeText(input);
    const Argument images = takeText(input);
    const Argument fonts = takeText(input);
    const fuzz::Handler plain(xmlToImgCreateHandlerUnicode(path.data(), path.length));
    const fuzz::Handler withFolders(xmlToImgCreateHandlerWithDirsUnicode(
        path.data(), path.length, images.data(), images.length, fonts.data(), fonts.length));
    MUST(plain != nullptr && withFolders != nullptr);
}

void applyParams(void* handler, std::string_view& input) {
    const Argument path = takeText(input);
    MUST(fuzz::isResult(
        xmlToImgSetDictionaryFromParamFileUnicode(handler, path.data(), path.length)));
}

// To a file of the work folder, or to an empty path, which writes nothing. Nor does a document that
// a placeholder's value has broken.
void draw(void* handler, std::string_view& input) {
    const unsigned how = fuzz::takeByte(input);
    const bool empty = (how & 1U) != 0;
    const bool terminated = (how & 2U) != 0;
    const fuzz::WideText path(fuzz::unitsOf(empty ? "" : fuzz::pathOf("picture.bmp")), terminated);
    MUST(xmlToImgCreateImageUnicode(handler, path.data(), terminated ? -1 : path.length) == 0);
    MUST(!empty || !fuzz::exists("picture.bmp"));
    fuzz::removeFile("picture.bmp");
}

void step(void* handler, std::string_view& input) {
    switch (fuzz::takeByte(input) % 11) {
    case 0:
        return set(xmlToImgSetTagDictionaryUnicode, handler, input);
    case 1:
        return set(xmlToImgSetObjectTagDictionaryUnicode, handler, input);
    case 2:
        return set(xmlToImgSetObjectLinkDictionaryUnicode, handler, input);
    case 3:
        return read(xmlToImgGetObjectTagDictionaryUnicode, handler, input);
    case 4:
        return read(xmlToImgGetObjectLinkDictionaryUnicode, handler, input);
    case 5:
        return listParams(handler, input);
    case 6:
        return askForFont(handler, input);
    case 7:
        return makeHandlers(input);
    case 8:
        return applyParams(handler, input);
    case 9:
        return draw(handler, input);
    default:
        return MUST(xmlToImgClearAllDictionary(handler) == 0);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = fuzz::textOf(data, size);
    fuzz::writeFile("layout.xml", fuzz::layoutOf(200, 100, fuzz::LinkedItems));
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    for (int steps = 0; !input.empty() && steps < MostSteps; ++steps) {
        step(handler.get(), input);
    }
    MUST(fuzz::holdsNothingBut({"layout.xml"}));
    return 0;
}
