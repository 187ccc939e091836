#include "render/large_letters.h"

#include "library_limits.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QTransform>

#include <atomic>

namespace {

constexpr double DotsPerPoint = 96.0 / 72.0;
constexpr double SmallestPath = 64.0 - 1.0; // dots, less a rounding

// Another one each time: Qt keeps the letters of the last ten.
QTransform newTransform() {
    constexpr unsigned Steps = 65536; // what the font library tells apart
    static std::atomic<unsigned> calls{0};
    const unsigned call = ++calls;
    const unsigned turnover = call / Steps;
    return {
        1, static_cast<double>(call % Steps) / Steps, static_cast<double>(turnover) / Steps, 1, 0,
        0};
}

// A letter under a transform that it was never loaded under is loaded for certain, and leaves nothing
// in the face.
void loadOneLetter(const QRawFont& face) {
    const auto space = face.glyphIndexesForString(QStringLiteral(" "));
    face.alphaMapForGlyph(space.value(0), QRawFont::PixelAntialiasing, newTransform());
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

bool velnor::areDrawable(const QFont& font) {
    return font.pointSizeF() * DotsPerPoint <= velnor::MaximumPicturedLetter ||
           !QRawFont::fromFont(font).fontTable("head").isEmpty();
}
