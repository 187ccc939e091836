// Texts in black, in one of three layouts.
#include "document/codes.h"
#include "document/dots.h"
#include "library_limits.h"
#include "render/gui_application.h"
#include "render/large_letters.h"
#include "render/surface_painter.h"
#include "render/velnorimage.h"

#include <QGuiApplication>

#include <optional>

namespace {

constexpr double SurfaceDpi = 96.0;
constexpr double PointsPerInch = 72.0;
constexpr int HorizontalAlignmentBits = 0x0f;
constexpr int VerticalAlignmentBits = Qt::AlignTop | Qt::AlignBottom | Qt::AlignVCenter;

// What one layout reads: the item's text, box and flags, and a length that no text reaches.
struct TextLayout {
    const QString& text;
    QRectF box;
    int flags;
    double endless;
};

// How a text is painted.
struct PlacedText {
    QRectF box;
    int flags;
    QFont font;
};

double dotsOf(const QFont& font) {
    return font.pointSizeF() * SurfaceDpi / PointsPerInch;
}

// Each layout gives the place of the text; none where the text is too long for its box.

std::optional<PlacedText> placeUnbounded(QPainter& painter, const TextLayout& layout) {
    const int flags = (layout.flags & ~HorizontalAlignmentBits) | Qt::AlignLeft;
    const QRectF room(layout.box.x(), layout.box.y(), layout.endless, painter.font().pointSize());
    const QSizeF measured = painter.boundingRect(room, flags, layout.text).size();
    return PlacedText{QRectF(room.topLeft(), measured), flags, painter.font()};
}

std::optional<PlacedText> placeInRectangle(QPainter& painter, const TextLayout& layout) {
    const int width =
        VelnorImage::adaptFontSize(&painter, layout.flags, layout.box, layout.text, painter.font());
    if (width < 0) {
        return {};
    }
    return PlacedText{layout.box, layout.flags, painter.font()};
}

std::optional<PlacedText> placeInWidth(QPainter& painter, TextLayout layout) {
    layout.flags = (layout.flags & ~VerticalAlignmentBits) | Qt::AlignTop;
    const auto measuredHeight = [&](const QRectF& box) {
        return painter.boundingRect(box, layout.flags, layout.text).height();
    };
    layout.box.setHeight(layout.endless);
    layout.box.setHeight(measuredHeight(layout.box));
    auto placed = placeInRectangle(painter, layout);
    if (placed) {
        placed->box.setHeight(measuredHeight(layout.box));
    }
    return placed;
}

std::optional<PlacedText> placeInLayout(QPainter& painter, const TextLayout& layout) {
    if (layout.box.width() == velnor::NotGiven) {
        return placeUnbounded(painter, layout);
    }
    if (layout.box.height() == velnor::NotGiven) {
        return placeInWidth(painter, layout);
    }
    return placeInRectangle(painter, layout);
}

std::optional<PlacedText> place(QImage& surface, const QFont& font, const TextLayout& layout) {
    if (layout.text.size() > velnor::MaximumTextLength) {
        return {};
    }
    SurfacePainter painter(surface);
    painter.setFont(font);
    return placeInLayout(painter, layout);
}

void drawLetters(QPainter& painter, const QRectF& box, int flags, const QString& text) {
    if (velnor::prepareLargeLetters(painter.font(), text)) {
        painter.drawText(box, flags, text);
    }
}

// How far letters reach out of their box: slanted ones do, and accents above accents.
double overhangOf(const QFont& font) {
    return 8 * dotsOf(font);
}

} // namespace

int VelnorImage::ConvertToPoints(int size, int dpi) {
    return velnor::roundToDots(static_cast<double>(size) * dpi / SurfaceDpi);
}

double VelnorImage::pointsOnPaper(double surfacePoints, int dpi) {
    return dpi == 0 ? 0 : surfacePoints * SurfaceDpi / dpi;
}

int VelnorImage::SetFont(const QString& family, int size, int dpi, bool bold, bool italic,
                         bool antialias) {
    font.reset();
    if (!velnor::guiApplicationExists()) {
        return 0;
    }
    font = std::make_unique<QFont>(family, ConvertToPoints(size, dpi), -1, false);
    font->setWeight(bold ? QFont::Bold : QFont::Normal);
    font->setStyle(italic ? QFont::StyleItalic : QFont::StyleNormal);
    if (qGuiApp->devicePixelRatio() != 1.0) {
        // Qt does not hint glyphs where the application scales for its screen. Paper has none: slight
        // hinting, as fontconfig sets it on Debian.
        font->setHintingPreference(QFont::PreferVerticalHinting);
    }
    if (!antialias) {
        font->setStyleStrategy(
            static_cast<QFont::StyleStrategy>(font->styleStrategy() | QFont::NoAntialias));
    }
    return 0;
}

int VelnorImage::DrawOverlayText(const QString& text, int x, int y, int rotation) {
    return DrawOverlayTextGeneric(text, x, y, rotation, -1, -1, -1);
}

int VelnorImage::DrawOverlayLineBoundedText(const QString& text, int x, int y, int width, int flags,
                                            int rotation) {
    return DrawOverlayTextGeneric(text, x, y, rotation, width, -1, flags);
}

int VelnorImage::DrawOverlayRectBoundedText(const QString& text, int x, int y, int width,
                                            int height, int flags, int rotation) {
    return DrawOverlayTextGeneric(text, x, y, rotation, width, height, flags);
}

int VelnorImage::DrawOverlayTextGeneric(const QString& text, int x, int y, int rotation, int width,
                                        int height, int flags) {
    textSize = 0;
    if (!canBeDrawnOn() || !font || !velnor::guiApplicationExists()) {
        return -1;
    }
    const double endless = 1000.0 * qMax(image->width(), image->height());
    const auto placed = place(*image, *font, {text, QRectF(x, y, width, height), flags, endless});
    if (!placed) {
        return -1;
    }
    const QPoint position(x, y);
    const QTransform transform = rotationAbout(position, rotation);
    velnor::paintInParts(
        *image, position, transform.mapRect(placed->box), overhangOf(placed->font),
        [&](QPainter& painter, const QPoint& onPart) {
            painter.setTransform(rotationAbout(onPart, rotation));
            painter.setFont(placed->font);
            painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            drawLetters(painter, QRectF(onPart, placed->box.size()), placed->flags, text);
        });
    textSize = placed->font.pointSizeF();
    recordCoverage(placed->box, transform);
    return 0;
}
