#include "check/placeholders.h"

namespace {

const QLatin1Char Percent('%');

bool canStandInName(QChar character) {
    return !character.isSpace() && !QStringLiteral("\"'<>&").contains(character);
}

bool canBegin(QChar character) {
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

bool isHexadecimal(QChar character) {
    return character.isDigit() ||
           (character.toLower() >= QLatin1Char('a') && character.toLower() <= QLatin1Char('f'));
}

bool hasByteBehind(const QString& text, int percent) {
    return percent + 2 < text.size() && isHexadecimal(text[percent + 1]) &&
           isHexadecimal(text[percent + 2]);
}

// Where the percent sign stands that ends a name; -1 where there is none.
int endOfName(const QString& text, int percent) {
    int at = percent + 1;
    while (at < text.size() && text[at] != Percent && canStandInName(text[at])) {
        ++at;
    }
    const bool isName = at < text.size() && text[at] == Percent && canBegin(text[percent + 1]);
    return isName && !(hasByteBehind(text, percent) && hasByteBehind(text, at)) ? at : -1;
}

} // namespace

std::vector<tool::Placeholder> tool::placeholdersIn(const QString& text) {
    std::vector<Placeholder> found;
    int percent = text.indexOf(Percent);
    while (percent >= 0) {
        const int end = endOfName(text, percent);
        if (end > 0) {
            found.push_back({text.mid(percent + 1, end - percent - 1), percent});
        }
        percent = text.indexOf(Percent, (end > 0 ? end : percent) + 1);
    }
    return found;
}
