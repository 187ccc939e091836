#include "filling.h"

#include "library.h"

#include <fstream>
#include <stdexcept>

namespace soak {

namespace {

constexpr long MostWords = 12;
constexpr const char* Words[] = {
    "Total",  "4.20", "Käse",       "Größe",     "%none%",           "<b>", "Привет",
    "Ελλάδα", "שלום", "مرحبا",      "日本語",    "한국어",           "a&b", "\n",
    "W",      "fi",   "0123456789", "e\xcc\x81", "\xf0\x9f\x8e\xab", "",
};

int setPlaceholder(void* handler, const std::string& name, const std::string& value, bool wide) {
    if (!wide) {
        return xmlToImgSetTagDictionary(handler, name.c_str(), value.c_str());
    }
    const Wide tag(name);
    const Wide text(value);
    return xmlToImgSetTagDictionaryUnicode(handler, tag.data(), tag.size(), text.data(),
                                           text.size());
}

int setObject(void* handler, const std::string& name, const std::string& value, bool wide) {
    if (!wide) {
        return xmlToImgSetObjectTagDictionary(handler, name.c_str(), value.c_str());
    }
    const Wide key(name);
    const Wide text(value);
    return xmlToImgSetObjectTagDictionaryUnicode(handler, key.data(), key.size(), text.data(),
                                                 text.size());
}

int setLink(void* handler, const std::string& name, const std::string& value, bool wide) {
    if (!wide) {
        return xmlToImgSetObjectLinkDictionary(handler, name.c_str(), value.c_str());
    }
    const Wide key(name);
    const Wide text(value);
    return xmlToImgSetObjectLinkDictionaryUnicode(handler, key.data(), key.size(), text.data(),
                                                  text.size());
}

int setParameters(void* handler, const std::string& file, bool wide) {
    if (!wide) {
        return xmlToImgSetDictionaryFromParamFile(handler, file.c_str());
    }
    const Wide path(file);
    return xmlToImgSetDictionaryFromParamFileUnicode(handler, path.data(), path.size());
}

int apply(void* handler, const Document& document, const std::string& name,
          const std::string& value, bool wide) {
    if (name == "params") {
        const std::string folder = document.values.substr(0, document.values.rfind('/') + 1);
        return setParameters(handler, folder + value, wide);
    }
    if (name.front() == '@') {
        return setLink(handler, name.substr(1), value, wide);
    }
    return name.find('.') == std::string::npos ? setPlaceholder(handler, name, value, wide)
                                               : setObject(handler, name, value, wide);
}

} // namespace

void applyValues(void* handler, const Document& document, bool wide) {
    std::ifstream values(document.values);
    for (std::string line; std::getline(values, line);) {
        const size_t equals = line.find('=');
        if (line.empty() || line.front() == '#' || equals == std::string::npos) {
            continue;
        }
        const std::string name = line.substr(0, equals);
        if (apply(handler, document, name, line.substr(equals + 1), wide) != 0) {
            throw std::runtime_error("cannot set " + name + " of " + document.layout);
        }
    }
}

void setRandomText(void* handler, const std::string& object, Random& random) {
    std::string text;
    for (long words = random.between(0, MostWords); words > 0; --words) {
        text += random.oneOf(Words);
        text += ' ';
    }
    const bool wide = random.oneIn(2);
    setObject(handler, object + ".text", text, wide);
    setObject(handler, object + ".fontsize", std::to_string(random.between(1, 90)), wide);
    setObject(handler, object + ".rotation", std::to_string(random.between(-1, 359)), wide);
    setObject(handler, "no.such.object", text, wide);
}

} // namespace soak
