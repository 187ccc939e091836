#include "document/vocabulary.h"

#include "document/dom_values.h"
#include "handler/velnorxml.h"

namespace {

constexpr int NoNumber = -1;

bool isNumber(const QString& text) {
    bool converted = false;
    text.toInt(&converted, 10);
    return converted;
}

bool isMargin(const QString& text) {
    int ignored = 0;
    return VelnorXml::parseMargin(text, &ignored, &ignored, &ignored, &ignored);
}

bool isGridLength(const QString& text) {
    const QString trimmed = text.trimmed();
    return trimmed == QLatin1String("Auto") || isNumber(trimmed) ||
           (trimmed.endsWith(QLatin1Char('*')) && isNumber(trimmed.chopped(1)));
}

} // namespace

bool velnor::isTakenBy(ValueKind kind, const QString& text) {
    switch (kind) {
    case ValueKind::Number:
        return isNumber(text);
    case ValueKind::NumberUpTo2:
        return integerInRangeOr(text, 0, 2, NoNumber) != NoNumber;
    case ValueKind::Margin:
        return isMargin(text);
    case ValueKind::HorizontalAnchor:
        return VelnorXml::GetHAnchorValue(text, NoNumber) != NoNumber;
    case ValueKind::VerticalAnchor:
        return VelnorXml::GetVAnchorValue(text, NoNumber) != NoNumber;
    case ValueKind::EjectOrRetract:
        return VelnorXml::GetEjectRetractValue(text, NoNumber) != NoNumber;
    case ValueKind::GridLength:
        return isGridLength(text);
    case ValueKind::Text:
    case ValueKind::GridDefinitions:
        break;
    }
    return true;
}
