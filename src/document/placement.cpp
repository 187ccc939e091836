#include "document/dom_values.h"
#include "document/elements.h"
#include "document/vocabulary.h"
#include "handler/velnorxml.h"

#include <QDomElement>

#include <array>

using velnor::integerOr;

namespace {

struct Keyword {
    const char* name;
    int bits;
};

constexpr std::array<Keyword, 3> HorizontalKeywords = {
    {{"left", velnor::AnchorLeft},
     {"right", velnor::AnchorRight},
     {"center", velnor::AnchorHorizontalCentre}}};

constexpr std::array<Keyword, 3> VerticalKeywords = {{{"top", velnor::AnchorTop},
                                                      {"bottom", velnor::AnchorBottom},
                                                      {"center", velnor::AnchorVerticalCentre}}};

int anchorBits(const QString& text, const std::array<Keyword, 3>& keywords, int mask,
               int fallback) {
    bool converted = false;
    const int number = text.toInt(&converted, 10);
    if (converted) {
        return number & mask;
    }
    const QString word = text.toLower().trimmed();
    for (const Keyword& keyword : keywords) {
        if (word == QLatin1String(keyword.name)) {
            return keyword.bits;
        }
    }
    return fallback;
}

struct CommonField {
    const char* tagName;
    int VelnorDrawableElement::*field;
    int notANumber;
};

constexpr std::array<CommonField, 6> CommonFields = {{
    {"x", &VelnorDrawableElement::x, 0},
    {"y", &VelnorDrawableElement::y, 0},
    {"xr", &VelnorDrawableElement::xr, 0},
    {"yb", &VelnorDrawableElement::yb, 0},
    {"width", &VelnorDrawableElement::width, velnor::NotGiven},
    {"height", &VelnorDrawableElement::height, velnor::NotGiven},
}};

constexpr velnor::Word MarginWord{"margin", velnor::ValueKind::Margin};

// 64 bits: the last index of a span that is near 2^31 does not fit in 32.
int spanInside(int first, int span, int count) {
    const qint64 last = static_cast<qint64>(first) + span - 1;
    return span < 1 || last >= count ? 1 : span;
}

} // namespace

bool VelnorXml::parseCommonTagNam(VelnorDrawableElement* element, const QDomElement& child) {
    const QString name = child.tagName();
    for (const CommonField& common : CommonFields) {
        if (name == QLatin1String(common.tagName)) {
            element->*common.field = integerOr(child.text(), common.notANumber);
            return true;
        }
    }
    if (name == QLatin1String(MarginWord.element)) {
        parseMargin(child.text(), &element->x, &element->y, &element->xr, &element->yb);
        return true;
    }
    return false;
}

velnor::Words velnor::commonWords() {
    Words words{MarginWord};
    for (const CommonField& common : CommonFields) {
        words.push_back({common.tagName, ValueKind::Number});
    }
    return words;
}

int VelnorXml::GetHAnchorValue(const QString& text, int fallback) {
    return anchorBits(text, HorizontalKeywords, velnor::AnchorHorizontalCentre, fallback);
}

int VelnorXml::GetVAnchorValue(const QString& text, int fallback) {
    return anchorBits(text, VerticalKeywords, velnor::AnchorVerticalCentre, fallback);
}

bool VelnorXml::parseMargin(const QString& text, int* left, int* top, int* right, int* bottom) {
    const QStringList parts = text.split(QLatin1Char(','), Qt::KeepEmptyParts);
    std::array<int, 4> numbers{};
    if (parts.size() != static_cast<int>(numbers.size())) {
        return false;
    }
    for (int i = 0; i < parts.size(); ++i) {
        bool converted = false;
        numbers[static_cast<size_t>(i)] = parts[i].toInt(&converted, 10);
        if (!converted) {
            return false;
        }
    }
    *left = numbers[0];
    *top = numbers[1];
    *right = numbers[2];
    *bottom = numbers[3];
    return true;
}

void VelnorXml::FixDrawableFields(VelnorDrawableElement* element,
                                  const VelnorDrawableCanvas* canvas) {
    element->rowspan = spanInside(element->row, element->rowspan, canvas->rowCount);
    element->columnspan = spanInside(element->column, element->columnspan, canvas->columnCount);
}
