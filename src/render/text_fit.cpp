// Shrinking a text until it fits its box.
#include "document/dots.h"
#include "library_limits.h"
#include "render/velnorimage.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr double ShrinkFactor = 0.95;

// Longer than any text. A rectangle of such lengths has its far edges within 32 bits.
constexpr int Endless = 1 << 29;

int toRoom(double length) {
    return qBound(-Endless, velnor::roundToDots(length), Endless);
}

} // namespace

int VelnorImage::adaptFontSize(QPainter* painter, int flags, const QRectF& box, const QString& text,
                               QFont font) {
    if (text.isEmpty()) {
        return 0;
    }
    const QRect room(toRoom(box.x()), toRoom(box.y()), toRoom(box.width()), toRoom(box.height()));
    const auto measure = [&] {
        return painter->fontMetrics().boundingRect(room, flags, text).size();
    };
    QSize measured = measure();
    const auto fits = [&] {
        return measured.isNull() ||
               (measured.width() <= box.width() && measured.height() <= box.height());
    };
    // A box of a negative length is never reached; the text has vanished before the rounds end.
    const int rounds = qMin(velnor::MaximumShrinkRounds, velnor::MaximumShrinkWork / text.size());
    for (int round = 0; round < rounds && !fits(); ++round) {
        font.setPointSizeF(font.pointSizeF() * ShrinkFactor);
        painter->setFont(font);
        measured = measure();
    }
    return rounds < velnor::MaximumShrinkRounds && !fits() ? -1 : measured.width();
}
