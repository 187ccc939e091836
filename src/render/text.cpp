// Texts in black, in one of three layouts.
#include "document/codes.h"
#include "document/dots.h"
#include "library_limits.h"
#include "render/gui_application.h"
#include "render/large_letters.h"
#include "render/surface_painter.h"
#include "render/velnorimage.h"

#include <QGuiApplication>

namespace {

constexpr double SurfaceDpi = 96.0;
constexpr int HorizontalAlignmentBits = 0x0f;
constexpr int VerticalAlignmentBits = Qt::AlignTop | Qt::AlignBottom | Qt::AlignVCenter;

// What one layout reads: the item's text, box and flags, and a length that no text reaches.
struct TextLayout {
    const QString& text;
    QRectF box;
    int flags;
    double endless;
};

void drawLetters(QPainter& painter, const QRectF& box, int flags, const QString& text) {
    if (velnor::areDrawable(painter.font())) {
        velnor::prepareLargeLetters(painter.font(), text);
        painter.drawText(box, flags, text);
    }
}

// Each layout draws the text and gives the box that it drew in.

QRectF drawUnbounded(QPainter& painter, const TextLayout& layout) {
    const int flags = (layout.flags & ~HorizontalAlignmentBits) | Qt::AlignLeft;
    const QRectF room(layout.box.x(), layout.box.y(), layout.endless, painter.font().pointSize());
    const QSizeF measured = painter.boundingRect(room, flags, layout.text).size();
    const QRectF box(room.topLeft(), measured);
    drawLetters(painter, box, flags, layout.text);
    return box;
}

QRectF drawLineBounded(QPainter& painter, const TextLayout& layout) {
    const int flags = (layout.flags & ~VerticalAlignmentBits) | Qt::AlignTop;
    QRectF box = layout.box;
    box.setHeight(layout.endless);
    box.setHeight(painter.boundingRect(box, flags, layout.text).height());
    VelnorImage::adaptFontSize(&painter, flags, box, layout.text, painter.font());
    box.setHeight(painter.boundingRect(box, flags, layout.text).height());
    drawLetters(painter, box, flags, layout.text);
    return box;
}

QRectF drawRectangleBounded(QPainter& painter, const TextLayout& layout) {
    VelnorImage::adaptFontSize(&painter, layout.flags, layout.box, layout.text, painter.font());
    drawLetters(painter, layout.box, layout.flags, layout.text);
    return layout.box;
}

QRectF drawInLayout(QPainter& painter, const TextLayout& layout) {
    if (layout.box.width() == velnor::NotGiven) {
        return drawUnbounded(painter, layout);
    }
    if (layout.box.height() == velnor::NotGiven) {
        return drawLineBounded(painter, layout);
    }
    return drawRectangleBounded(painter, layout);
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
    if (!canBeDrawnOn() || !font || !velnor::guiApplicationExists() ||
        text.size() > velnor::MaximumTextLength) {
        return -1;
    }
    const QTransform transform = rotationAbout(x, y, rotation);
    SurfacePainter painter(*image);
    painter.setTransform(transform);
    painter.setFont(*font);
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    const double endless = 1000.0 * qMax(image->width(), image->height());
    const QRectF drawn = drawInLayout(painter, {text, QRectF(x, y, width, height), flags, endless});
    textSize = painter.font().pointSizeF();
    painter.end();
    recordCoverage(drawn, transform);
    return 0;
}
