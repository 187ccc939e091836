#include "render/large_letters.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QTransform>

namespace {

constexpr double DotsPerPoint = 96.0 / 72.0;
constexpr double SmallestPath = 64.0 - 1.0; // dots, less a rounding

// Qt's cache has no place for letters under a projection: this one is loaded for certain, and leaves
// nothing behind.
void loadOneLetter(const QRawFont& face) {
    const QTransform projection(1, 0, 0, 0, 1, 0, 0, 0, 2);
    const auto space = face.glyphIndexesForString(QStringLiteral(" "));
    face.alphaMapForGlyph(space.value(0), QRawFont::PixelAntialiasing, projection);
}

} // namespace

void velnor::prepareLargeLetters(const QFont& font, const QString& text) {
    if (font.pointSizeF() * DotsPerPoint < SmallestPath) {
        return;
    }
    QTextLayout layout(text, font);
    layout.beginLayout();
    while (layout.createLine().isValid()) {
    }
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns()) {
        loadOneLetter(run.rawFont());
    }
}
