#include "layout/layout.h"

#include "engine/document_view.h"

#include <velnorxmltoimg.h>

#include <vector>

namespace {

constexpr size_t FindingsSize = 4UL * 1024 * 1024;

} // namespace

tool::Layout::Layout(const LayoutOptions& givenOptions)
    : options(givenOptions),
      file(options.document), given{options.document,    file.path(),        file.images(options),
                                    file.fonts(options), options.paramFiles, {}},
      handler(createHandler(given.path, given.images, given.fonts)) {
    reset();
}

void tool::Layout::reset() {
    xmlToImgClearAllDictionary(handler.get());
    given.settings.clear();
    for (const std::string& paramFile : options.paramFiles) {
        applyParams(paramFile);
    }
    for (const Setting& setting : options.settings) {
        setInPlace(setting);
    }
}

void tool::Layout::setInPlace(const Setting& setting) {
    set(setting);
    if (!hasPlaceFor(setting)) {
        refuse(setting, "the document has no such object");
    }
}

void tool::Layout::applyParams(const std::string& paramFile) {
    requireReadable(paramFile);
    if (xmlToImgSetDictionaryFromParamFile(handler.get(), paramFile.c_str()) != 0) {
        throw Failure(ExitCode::UnreadableDocument, "'" + paramFile + "' is no parameter file");
    }
}

void tool::Layout::set(const Setting& setting) {
    const char* name = setting.name.c_str();
    const char* value = setting.value.c_str();
    int result = 0;
    switch (setting.kind) {
    case Setting::Kind::Tag:
        result = xmlToImgSetTagDictionary(handler.get(), name, value);
        break;
    case Setting::Kind::Object:
        result = xmlToImgSetObjectTagDictionary(handler.get(), name, value);
        break;
    case Setting::Kind::Link:
        result = xmlToImgSetObjectLinkDictionary(handler.get(), name, value);
        break;
    }
    if (result != 0) {
        refuse(setting, "the document has no such link");
    }
    given.settings.push_back(setting);
}

// A document that cannot be read has no place for anything.
void tool::Layout::refuse(const Setting& setting, const std::string& reason) const {
    requireDocument(given);
    throw Failure(ExitCode::Usage, describe(setting) + ": " + reason);
}

bool tool::Layout::hasPlaceFor(const Setting& setting) const {
    return setting.kind != Setting::Kind::Object ||
           xmlToImgGetObjectTagDictionary(handler.get(), setting.name.c_str(), nullptr, 0) == 0;
}

void tool::Layout::createImage(const std::string& picture) const {
    xmlToImgCreateImage(handler.get(), picture.c_str());
}

std::string tool::Layout::findings() const {
    std::vector<char> buffer(FindingsSize);
    xmlToImgCheckCorrect(handler.get(), buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

tool::PrinterSettings tool::Layout::printerSettings() const {
    PrinterSettings settings{-1, -1, -1};
    xmlToImgGetPrinterSettings(handler.get(), &settings.presentation, &settings.ejectRetract,
                               &settings.timeout);
    return settings;
}
