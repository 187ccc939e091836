// A barcode item. The input is "TYPE HRT MODE OPTION1 OPTION2 OPTION3 WIDTH HEIGHT
// ROTATION|PRIMARY|DATA" with numbers up to the first bar; what is no number is not given.
#include "support/check.h"
#include "support/drawing.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/layout.h"
#include "support/scratch.h"
#include "support/target.h"

#include <velnorxmltoimg.h>

#include <optional>

namespace {

constexpr const char* Fields[] = {"type",    "hrt",   "inputmode", "option1", "option2",
                                  "option3", "width", "height",    "rotation"};

// A box beyond this is drawn no differently, only slower.
constexpr int LongestSide = 1200;

std::optional<int> takeNumber(std::string_view& numbers) {
    const std::string_view word = fuzz::takeUpTo(' ', numbers);
    const int number = fuzz::numberOr(word, 0);
    const bool isNumber = number == fuzz::numberOr(word, 1);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::string fieldsFrom(std::string_view numbers) {
    std::string fields;
    for (const std::string_view name : Fields) {
        std::optional<int> number = takeNumber(numbers);
        if (number && (name == "width" || name == "height")) {
            number = *number % LongestSide;
        }
        fields += fuzz::element(name, number ? std::to_string(*number) : "");
    }
    return fields;
}

// Set from outside, a text may hold what XML cannot.
void setText(void* handler, const char* name, std::string_view text) {
    const std::string value = fuzz::withoutZeros(text);
    MUST(xmlToImgSetObjectTagDictionary(handler, name, value.c_str()) == 0);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = fuzz::textOf(data, size);
    const std::string fields = fieldsFrom(fuzz::takeUpTo('|', input));
    fuzz::writeFile("layout.xml",
                    fuzz::layoutOf(300, 300,
                                   "<VelnorItem class='barcode' id='code'><x>9</x><y>9</y>" +
                                       fields + "</VelnorItem>"));
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    setText(handler.get(), "code.primary", fuzz::takeUpTo('|', input));
    setText(handler.get(), "code.text", input);
    MUST(fuzz::isResult(xmlToImgCheckCorrect(handler.get(), nullptr, 0)));
    fuzz::drawTwice(handler.get(), "picture.bmp", {"layout.xml"});
    return 0;
}
