#include "text_coverage.h"

#include <QChar>
#include <QRawFont>
#include <QStringList>

namespace {

bool hasShape(uint character) {
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
        return false;
    default:
        return true;
    }
}

} // namespace

QVector<uint> tool::missingCharacters(const QFont& font, const QString& text) {
    const QRawFont glyphs = QRawFont::fromFont(font);
    QVector<uint> missing;
    for (const uint character : text.toUcs4()) {
        if (hasShape(character) && !glyphs.supportsCharacter(character) &&
            !missing.contains(character)) {
            missing.append(character);
        }
    }
    return missing;
}

std::string tool::listCharacters(const QVector<uint>& characters) {
    QStringList parts;
    for (const uint character : characters) {
        const QString code =
            QString::number(character, 16).toUpper().rightJustified(4, QLatin1Char('0'));
        parts.append(QString::fromUcs4(&character, 1) + QLatin1String(" U+") + code);
    }
    return parts.join(QLatin1String(", ")).toStdString();
}
