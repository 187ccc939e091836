// A parameter file is listed and applied. The sizes of the buffers follow from its content.
#include "support/buffers.h"
#include "support/check.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/layout.h"
#include "support/scratch.h"
#include "support/target.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <algorithm>

namespace {

constexpr int Enough = 1 << 16;

struct Lists {
    fuzz::WideString tags;
    fuzz::WideString values;
    bool found;
};

Lists listWide(void* handler, int size) {
    const fuzz::WideText path(fuzz::unitsOf(fuzz::pathOf("params.xml")), false);
    fuzz::WideBuffer tags(size);
    fuzz::WideBuffer values(size);
    const int result = xmlToImgGetDictionaryFromParamFileUnicode(handler, path.data(), path.length,
                                                                 tags.data(), values.data(), size);
    MUST(fuzz::isResult(result));
    if (result != 0) {
        MUST(tags.isUntouched() && values.isUntouched());
        return {{}, {}, false};
    }
    for (const fuzz::WideBuffer* buffer : {&tags, &values}) {
        MUST(size > 0 && buffer->text().size() < static_cast<std::size_t>(size));
        MUST(buffer->isUntouchedFrom(buffer->text().size() + 1));
    }
    return {fuzz::WideString(tags.text()), fuzz::WideString(values.text()), true};
}

void listNarrow(void* handler, int tagsSize, int valuesSize) {
    fuzz::NarrowBuffer tags(tagsSize);
    fuzz::NarrowBuffer values(valuesSize, tagsSize); // its contract
    const std::string path = fuzz::pathOf("params.xml");
    MUST(fuzz::isResult(xmlToImgGetDictionaryFromParamFile(handler, path.c_str(), tags.data(),
                                                           tagsSize, values.data(), valuesSize)));
    MUST(tagsSize > 0 ? tags.isZeroFrom(tags.text().size()) : tags.isUntouched());
    const auto used = static_cast<std::size_t>(std::max({tagsSize, valuesSize, 0}));
    MUST(values.isUntouchedFrom(used));
    MUST(fuzz::isResult(xmlToImgGetDictionaryFromParamFile(handler, path.c_str(), nullptr, tagsSize,
                                                           nullptr, valuesSize)));
}

// A list may be cut inside a character, which then ends as replacement characters.
fuzz::WideString withoutReplacements(fuzz::WideString list) {
    while (!list.empty() && list.back() == 0xfffd) {
        list.pop_back();
    }
    return list;
}

void list(void* handler, std::string_view input) {
    const Lists whole = listWide(handler, Enough);
    const int tagsRoom = static_cast<int>(whole.tags.size()) + 3;
    const int valuesRoom = static_cast<int>(whole.values.size()) + 3;
    const int tagsSize = fuzz::numberFrom(input, -1, tagsRoom);
    const int valuesSize = fuzz::numberFrom(input, -1, valuesRoom);
    MUST(listWide(handler, valuesSize).found == (whole.found && valuesSize > 0));
    const fuzz::WideString cut = withoutReplacements(listWide(handler, tagsSize).tags);
    MUST(whole.tags.compare(0, cut.size(), cut) == 0);
    listNarrow(handler, tagsSize, valuesSize);
}

void applyFile(void* handler) {
    const std::string path = fuzz::pathOf("params.xml");
    const int result = xmlToImgSetDictionaryFromParamFile(handler, path.c_str());
    MUST(fuzz::isResult(result));
    const fuzz::WideText wide(fuzz::unitsOf(path), true);
    MUST(xmlToImgSetDictionaryFromParamFileUnicode(handler, wide.data(), -1) == result);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = fuzz::textOf(data, size);
    fuzz::writeFile("params.xml", input);
    fuzz::writeFile("layout.xml", fuzz::layoutOf(200, 100, fuzz::LinkedItems));
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    list(handler.get(), input);
    applyFile(handler.get());
    MUST(fuzz::isResult(xmlToImgCheckCorrect(handler.get(), nullptr, 0)));
    MUST(xmlToImgClearAllDictionary(handler.get()) == 0);
    MUST(fuzz::holdsNothingBut({"layout.xml", "params.xml"}));
    return 0;
}
