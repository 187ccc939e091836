#include "render/surface_painter.h"

#include "document/dots.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace {

// Qt's painters clip what lies at this dot or behind it.
constexpr int PainterReach = 32767;

// An item looks the same some thousand dots further down, to the last rounding.
constexpr double PartAlignment = 1000;

struct Span {
    int first;
    int length;
};

// The parts along one side of the surface.
std::vector<Span> spansOf(int surfaceLength, double from, double to) {
    if (surfaceLength <= PainterReach || to <= PainterReach) {
        return {{0, surfaceLength}};
    }
    const double start = std::floor(from / PartAlignment) * PartAlignment;
    const int end = std::min(surfaceLength, velnor::truncateToDots(std::ceil(to)));
    std::vector<Span> spans;
    for (int first = std::max(0, velnor::truncateToDots(start)); first < end;
         first += PainterReach) {
        spans.push_back({first, std::min(PainterReach, end - first)});
    }
    return spans;
}

} // namespace

SurfacePainter::SurfacePainter(QImage& image) {
    if (!image.isNull() && begin(&image)) {
        // Keeps aliased lines of two dots and more on the dots that layouts were designed for.
        setRenderHint(QPainter::Qt4CompatiblePainting);
    }
}

std::vector<QRect> velnor::paintedParts(const QSize& surface, const QRectF& box, double overhang) {
    const QRectF painted = box.normalized().adjusted(-overhang, -overhang, overhang, overhang);
    std::vector<QRect> parts;
    for (const Span& rows : spansOf(surface.height(), painted.top(), painted.bottom())) {
        for (const Span& columns : spansOf(surface.width(), painted.left(), painted.right())) {
            parts.emplace_back(columns.first, rows.first, columns.length, rows.length);
        }
    }
    return parts;
}

QImage velnor::viewOfPart(QImage& surface, const QRect& part) {
    const qsizetype bytesPerDot = surface.depth() / 8;
    uchar* const first = surface.scanLine(part.y()) + part.x() * bytesPerDot;
    QImage view(first, part.width(), part.height(), surface.bytesPerLine(), surface.format());
    view.setDotsPerMeterX(surface.dotsPerMeterX());
    view.setDotsPerMeterY(surface.dotsPerMeterY());
    return view;
}

QPoint velnor::positionOnPart(const QPoint& position, const QRect& part) {
    return {saturate(static_cast<qint64>(position.x()) - part.x()),
            saturate(static_cast<qint64>(position.y()) - part.y())};
}
