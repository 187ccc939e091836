#include "document/dom_values.h"

int velnor::integerOr(const QString& text, int fallback) {
    bool converted = false;
    const int number = text.toInt(&converted, 10);
    return converted ? number : fallback;
}

int velnor::integerInRangeOr(const QString& text, int lowest, int highest, int fallback) {
    const int number = integerOr(text, fallback);
    return number < lowest || number > highest ? fallback : number;
}

bool velnor::flagOr(const QString& text, bool fallback) {
    return integerOr(text, fallback ? 1 : 0) != 0;
}
