// Barcodes that other items cover, or are drawn on.
#include "check/lints.h"
#include "check/lone_item.h"
#include "check/symbol_place.h"

namespace {

using tool::CheckedItem;

class CoveredSymbols {
public:
    explicit CoveredSymbols(const tool::CheckedDocument& document)
        : picture(document.drawn().picture()), start(tool::canvasInPicture(document)),
          canvas(picture.rect() & QRect(start, tool::canvasSize(document))) {}

    // The first dot of the canvas that is not as the symbol alone would have it.
    std::optional<QPoint> differenceAt(const CheckedItem& item) const {
        const auto& barcode = static_cast<const VelnorDrawableBarcode&>(*item.drawn);
        const QImage symbol =
            item.symbol->picture.convertToFormat(QImage::Format_ARGB32)
                .transformed(QTransform().rotate(tool::quarterTurns(barcode) * 90));
        const QRect place = tool::onCanvas(item.symbol->picture.rect(), barcode).translated(start);
        const QRect dots = place & canvas;
        for (int y = dots.top(); y <= dots.bottom(); ++y) {
            const auto* ofSymbol = rowOf(symbol, y - place.top());
            const auto* ofPicture = rowOf(picture, y);
            for (int x = dots.left(); x <= dots.right(); ++x) {
                if (tool::isInk(ofSymbol[x - place.left()]) != tool::isInk(ofPicture[x])) {
                    return QPoint(x, y) - start;
                }
            }
        }
        return std::nullopt;
    }

private:
    static const QRgb* rowOf(const QImage& image, int y) {
        return reinterpret_cast<const QRgb*>(image.constScanLine(y));
    }

    const QImage& picture;
    const QPoint start;
    const QRect canvas; // nothing is drawn in the margins
};

} // namespace

void tool::lintCoveredSymbols(const CheckedDocument& document, Findings& findings) {
    const CoveredSymbols symbols(document);
    for (const CheckedItem& item : document.items()) {
        const auto dot = isEvenSymbol(item) ? symbols.differenceAt(item) : std::nullopt;
        if (dot) {
            findings.add(
                Code::BarcodeCovered, item.element,
                QStringLiteral("shares dots with %1").arg(nameOfItemAt(document, *dot, item)));
        }
    }
}
