#include "render/large_letters.h"

#include "library_limits.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QTransform>

#include <algorithm>
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

// As FreeType knows them.
bool hasOutlines(const QGlyphRun& run) {
    const QRawFont face = run.rawFont();
    const auto has = [&face](const char* table) { return !face.fontTable(table).isEmpty(); };
    return has("glyf") || has("CFF ") || has("CFF2");
}

// Of all faces that the text is drawn with, those that stand in for missing letters included.
QList<QGlyphRun> glyphRunsOf(const QFont& font, const QString& text) {
    constexpr double LineDots = 1 << 20; // Qt complains about lines without end
    QTextLayout layout(text, font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(LineDots);
    }
    layout.endLayout();
    return layout.glyphRuns();
}

} // namespace

bool velnor::prepareLargeLetters(const QFont& font, const QString& text) {
    const double size = font.pointSizeF() * DotsPerPoint;
    if (size < SmallestPath) {
        return true;
    }
    const QList<QGlyphRun> runs = glyphRunsOf(font, text);
    if (size > MaximumPicturedLetter && !std::all_of(runs.begin(), runs.end(), hasOutlines)) {
        return false;
    }
    for (const QGlyphRun& run : runs) {
        loadOneLetter(run.rawFont());
    }
    return true;
}
