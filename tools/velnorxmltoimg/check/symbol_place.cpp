#include "check/symbol_place.h"

#include "check/finding.h"
#include "check/lone_item.h"
#include "engine/item_names.h"
#include "render/velnorimage.h"

#include <cmath>

namespace {

constexpr int QuarterTurn = 90;
constexpr int FullTurn = 360;

// What counts as no angle leaves the symbol upright.
int angleOf(const VelnorDrawableBarcode& barcode) {
    const bool isAngle = barcode.rotation != velnor::NotGiven && barcode.rotation >= -FullTurn &&
                         barcode.rotation <= FullTurn;
    return isAngle ? barcode.rotation : 0;
}

} // namespace

int tool::quarterTurns(const VelnorDrawableBarcode& drawn) {
    return (angleOf(drawn) + FullTurn) / QuarterTurn % 4;
}

bool tool::isEvenSymbol(const CheckedItem& item) {
    return item.symbol && !item.symbol->picture.isNull() && !item.isIncomplete &&
           velnor::isVisible(*item.drawn) &&
           angleOf(static_cast<const VelnorDrawableBarcode&>(*item.drawn)) % QuarterTurn == 0;
}

QRect tool::onCanvas(const QRect& upright, const VelnorDrawableBarcode& drawn) {
    const QTransform transform = VelnorImage::TransformScaleRotate(
        drawn.x, drawn.y, 1.0, 1.0, quarterTurns(drawn) * QuarterTurn);
    const QRectF turned = transform.mapRect(QRectF(upright).translated(drawn.x, drawn.y));
    // Sines of quarter turns are not quite whole.
    return wholeDots(QRectF(QPointF(std::round(turned.left()), std::round(turned.top())),
                            QPointF(std::round(turned.right()), std::round(turned.bottom()))));
}

QPoint tool::canvasInPicture(const CheckedDocument& document) {
    const VelnorDrawableCanvas& canvas = document.drawn().canvas();
    return wholeDots(QRectF(canvas.x, canvas.y, 1, 1)).topLeft();
}

QSize tool::canvasSize(const CheckedDocument& document) {
    const VelnorDrawableCanvas& canvas = document.drawn().canvas();
    return {canvas.width, canvas.height};
}

QString tool::nameOfItemAt(const CheckedDocument& document, const QPoint& dot,
                           const CheckedItem& except) {
    // The smallest one: a frame covers what lies inside it too.
    const CheckedItem* smallest = nullptr;
    qint64 smallestDots = 0;
    for (const CheckedItem& item : document.items()) {
        const QRect reach = reachOf(*item.drawn);
        const qint64 dots = qint64(reach.width()) * reach.height();
        if (&item != &except && velnor::isVisible(*item.drawn) && reach.contains(dot) &&
            (smallest == nullptr || dots < smallestDots)) {
            smallest = &item;
            smallestDots = dots;
        }
    }
    if (smallest == nullptr) {
        return QStringLiteral("ink");
    }
    const QString itemClass = QString::fromStdString(className(*smallest->drawn));
    return smallest->drawn->id.isEmpty()
               ? QStringLiteral("a ") + itemClass
               : itemClass + QLatin1Char(' ') + quoted(smallest->drawn->id);
}
