// Which characters of a text a font has no glyph for.
#ifndef VELNOR_TOOL_TEXT_COVERAGE_H
#define VELNOR_TOOL_TEXT_COVERAGE_H

#include <QFont>
#include <QString>
#include <QVector>

#include <string>

namespace tool {

// Each once, in the order of the text. White space and characters without a shape of their own, such
// as line feeds and joiners, are never missing.
QVector<uint> missingCharacters(const QFont& font, const QString& text);

// "ä U+00E4, 中 U+4E2D"
std::string listCharacters(const QVector<uint>& characters);

} // namespace tool

#endif
