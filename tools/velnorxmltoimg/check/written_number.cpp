#include "check/written_number.h"

std::optional<tool::WrittenNumber> tool::numberIn(const QDomElement& owner, const char* word) {
    const QDomElement element = owner.lastChildElement(QLatin1String(word));
    bool converted = false;
    const int number = element.text().toInt(&converted, 10);
    return converted ? std::optional<WrittenNumber>({element, number}) : std::nullopt;
}
