#include "setting.h"

#include "text.h"

#include <algorithm>

namespace {

using tool::Setting;

struct Form {
    const char* option;
    const char* text;
    bool hasPoint;
};

const Form& formOf(Setting::Kind kind) {
    static constexpr Form Tag{"--tag", "NAME=VALUE", false};
    static constexpr Form Object{"--set", "OBJECT.PROPERTY=VALUE", true};
    static constexpr Form Link{"--link", "OBJECT.NAME=VALUE", true};
    switch (kind) {
    case Setting::Kind::Tag:
        return Tag;
    case Setting::Kind::Object:
        return Object;
    case Setting::Kind::Link:
        break;
    }
    return Link;
}

bool fits(const Form& form, const std::string& name) {
    const auto points = std::count(name.begin(), name.end(), '.');
    if (!form.hasPoint) {
        return points == 0 && !name.empty();
    }
    return points == 1 && name.front() != '.' && name.back() != '.';
}

[[noreturn]] void refuse(const Form& form, const std::string& text, const std::string& reason) {
    throw tool::Failure(tool::ExitCode::Usage,
                        std::string(form.option) + ": '" + text + "' " + reason);
}

} // namespace

Setting tool::makeSetting(Setting::Kind kind, const std::string& name, const std::string& value) {
    const Form& form = formOf(kind);
    if (!fits(form, name)) {
        refuse(form, name, std::string("is no name of the form ") + form.text);
    }
    if (!isText(name) || !isText(value)) {
        refuse(form, name, "holds bytes that are not UTF-8 text");
    }
    const auto latin1 = toLatin1(name);
    if (!latin1) {
        refuse(form, name, "holds characters that a name cannot have (beyond Latin-1)");
    }
    return {kind, *latin1, value};
}

Setting tool::parseSetting(Setting::Kind kind, const std::string& text) {
    const size_t equals = text.find('=');
    if (equals == std::string::npos) {
        refuse(formOf(kind), text, std::string("is not of the form ") + formOf(kind).text);
    }
    return makeSetting(kind, text.substr(0, equals), text.substr(equals + 1));
}

std::string tool::describe(const Setting& setting) {
    return std::string(formOf(setting.kind).option) + ' ' + fromLatin1(setting.name);
}
