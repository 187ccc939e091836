#include "queries.h"

#include "library.h"

#include <algorithm>
#include <string>

namespace soak {

namespace {

constexpr size_t LargestBuffer = 4000;
constexpr const char* Families[] = {"Liberation Sans", "DejaVu Sans", "Liberation Mono",
                                    "No such family", ""};
constexpr const char* Properties[] = {"text", "x", "width", "fontname", "dpi", "none"};
constexpr const char* ParameterFiles[] = {
    VELNOR_GOLDEN_CASES "/output/param_file_sets_links_and_properties.params.xml",
    VELNOR_GOLDEN_CASES "/output/param_file_before_object_tag.params.xml",
    VELNOR_EXAMPLE_LAYOUTS "/receipt.xml",
    "/no/such/file.xml",
};

void validate(void* handler, const Document& /*document*/, Random& random) {
    std::string messages(random.below(LargestBuffer), '?');
    xmlToImgCheckCorrect(handler, messages.data(), static_cast<int>(messages.size()));
}

void askForSettings(void* handler, const Document& /*document*/, Random& /*random*/) {
    int presentation = 0;
    int ejectRetract = 0;
    int timeout = 0;
    xmlToImgGetPrinterSettings(handler, &presentation, &ejectRetract, &timeout);
}

void askForFont(void* handler, const Document& /*document*/, Random& random) {
    int bold = 0;
    int italic = 0;
    const std::string family = random.oneOf(Families);
    xmlToImgGetFontProperty(handler, family.c_str(), &bold, &italic);
    const Wide wide(family);
    xmlToImgGetFontPropertyUnicode(handler, wide.data(), wide.size(), &bold, &italic);
}

void listFonts(void* /*handler*/, const Document& /*document*/, Random& /*random*/) {
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
}

void readBack(void* handler, const Document& document, Random& random) {
    const std::string object = document.objects.empty() ? "none" : random.oneOf(document.objects);
    const std::string key = object + '.' + random.oneOf(Properties);
    const Wide wideKey(key);
    std::string value(random.below(LargestBuffer), '?');
    std::vector<unsigned short> wideValue(value.size() + 1);
    const int size = static_cast<int>(value.size());
    xmlToImgGetObjectTagDictionary(handler, key.c_str(), value.data(), size);
    xmlToImgGetObjectTagDictionaryUnicode(handler, wideKey.data(), wideKey.size(), wideValue.data(),
                                          size);
    xmlToImgGetObjectLinkDictionary(handler, key.c_str(), value.data(), size);
    xmlToImgGetObjectLinkDictionaryUnicode(handler, wideKey.data(), wideKey.size(),
                                           wideValue.data(), size);
}

void listParameters(void* handler, const Document& /*document*/, Random& random) {
    const std::string file = random.oneOf(ParameterFiles);
    const Wide path(file);
    const size_t size = random.below(LargestBuffer);
    std::string keys(size, '?');
    std::string values(size, '?');
    std::vector<unsigned short> wideKeys(size + 1);
    std::vector<unsigned short> wideValues(size + 1);
    xmlToImgGetDictionaryFromParamFile(handler, file.c_str(), keys.data(), static_cast<int>(size),
                                       values.data(), static_cast<int>(size));
    xmlToImgGetDictionaryFromParamFileUnicode(handler, path.data(), path.size(), wideKeys.data(),
                                              wideValues.data(), static_cast<int>(size));
}

using Question = void (*)(void*, const Document&, Random&);
constexpr Question Questions[] = {validate,  askForSettings, askForFont,
                                  listFonts, readBack,       listParameters};

} // namespace

void ask(void* handler, const Document& document, Random& random) {
    random.oneOf(Questions)(handler, document, random);
}

} // namespace soak
