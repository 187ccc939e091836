// The white space around barcodes, looked for in the finished picture.
#include "check/lints.h"
#include "check/lone_item.h"
#include "check/quiet_zone_sizes.h"
#include "check/symbol_place.h"
#include "document/dots.h"

namespace {

using tool::CheckedItem;
using tool::Code;
using tool::QuietZone;
using Barcode = VelnorDrawableBarcode;

enum Side { Left, Top, Right, Bottom, Sides };

// One side of a zone in dots of the canvas, without what lies in the symbol's own picture.
struct Strip {
    Side side; // on the paper, however the symbol is turned
    QRect dots;
};

bool isBlack(const QImage& symbol, int x, int y) {
    return tool::isInk(symbol.pixel(x, y));
}

// Where the bars are in the symbol's picture; its text, below and beside them, is left out.
QRect barsOf(const QImage& symbol, bool hasText) {
    const int rows = hasText ? (symbol.height() + 1) / 2 : symbol.height();
    QRect bars;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < symbol.width(); ++x) {
            if (isBlack(symbol, x, y)) {
                bars |= QRect(x, y, 1, 1);
            }
        }
    }
    while (hasText && !bars.isEmpty() && bars.bottom() + 1 < symbol.height() &&
           isBlack(symbol, bars.left(), bars.bottom() + 1)) {
        bars.setBottom(bars.bottom() + 1);
    }
    return bars;
}

// The zone of an upright symbol whose picture begins at the origin.
std::vector<Strip> stripsOf(const QRect& picture, const QRect& bars, const QuietZone& zone,
                            double module) {
    const auto dots = [module](int modules) { return velnor::roundToDots(modules * module); };
    const QRect frame =
        bars.adjusted(-dots(zone.left), -dots(zone.top), dots(zone.right), dots(zone.bottom));
    const std::vector<Strip> strips = {
        {Left, QRect(frame.topLeft(), QPoint(picture.left() - 1, frame.bottom()))},
        {Top, QRect(frame.topLeft(), QPoint(frame.right(), picture.top() - 1))},
        {Right, QRect(QPoint(picture.right() + 1, frame.top()), frame.bottomRight())},
        {Bottom, QRect(QPoint(frame.left(), picture.bottom() + 1), frame.bottomRight())}};
    std::vector<Strip> needed;
    for (const Strip& strip : strips) {
        if (strip.dots.isValid()) {
            needed.push_back(strip);
        }
    }
    return needed;
}

Strip turned(const Strip& strip, const Barcode& drawn) {
    return {static_cast<Side>((strip.side + tool::quarterTurns(drawn)) % Sides),
            tool::onCanvas(strip.dots, drawn)};
}

const char* nameOf(Side side) {
    static constexpr const char* Names[] = {"left", "top", "right", "bottom"};
    return Names[side];
}

class QuietZoneLints {
public:
    QuietZoneLints(const tool::CheckedDocument& checked, tool::Findings& collected)
        : document(checked), findings(collected), picture(checked.drawn().picture()),
          margin(tool::canvasInPicture(checked)) {}

    void check(const CheckedItem& item) {
        const auto& barcode = static_cast<const Barcode&>(*item.drawn);
        const QImage& symbol = item.symbol->picture;
        const QRect bars = barsIn(symbol, barcode);
        const double module = item.symbol->moduleDots;
        const QuietZone zone = tool::quietZoneOf(barcode.barcodeType, bars.width() / module);
        QStringList pastEdges;
        for (const Strip& upright : stripsOf(symbol.rect(), bars, zone, module)) {
            const Strip strip = turned(upright, barcode);
            if (isPastEdge(strip)) {
                pastEdges.append(QLatin1String(nameOf(strip.side)));
            }
            if (const auto dot = inkIn(strip.dots)) {
                tell(item, zone, strip, *dot);
                return;
            }
        }
        if (!pastEdges.isEmpty()) {
            findings.add(
                Code::QuietZoneEdge, item.element,
                QStringLiteral("%1 must be white around it; at the %2 the picture ends before")
                    .arg(sizeOf(zone, module), pastEdges.join(QStringLiteral(" and "))));
        }
    }

private:
    // Text stands at linear symbols alone.
    static QRect barsIn(const QImage& symbol, const Barcode& barcode) {
        constexpr int Shown = 1;
        const bool isLinear = tool::quietZoneOf(barcode.barcodeType, 0).hasBars;
        return barsOf(symbol, isLinear && barcode.hrt == Shown);
    }

    static QString sizeOf(const QuietZone& zone, double module) {
        return QStringLiteral("%1 (%2)").arg(
            tool::counted(zone.largest(), "module"),
            tool::counted(velnor::roundToDots(zone.largest() * module), "dot"));
    }

    // A roll goes on below what is printed.
    bool isPastEdge(const Strip& strip) const {
        const QRect dots = strip.dots.translated(margin);
        const QRect paper = picture.rect();
        switch (strip.side) {
        case Left:
            return dots.left() < paper.left();
        case Top:
            return dots.top() < paper.top();
        case Right:
            return dots.right() > paper.right();
        default:
            return dots.bottom() > paper.bottom() && !document.drawn().grows();
        }
    }

    // The first dot of ink in the rectangle, in dots of the canvas.
    std::optional<QPoint> inkIn(const QRect& canvasDots) const {
        const QRect dots = canvasDots.translated(margin) & picture.rect();
        for (int y = dots.top(); y <= dots.bottom(); ++y) {
            for (int x = dots.left(); x <= dots.right(); ++x) {
                if (tool::isInk(picture.pixel(x, y))) {
                    return QPoint(x, y) - margin;
                }
            }
        }
        return std::nullopt;
    }

    void tell(const CheckedItem& item, const QuietZone& zone, const Strip& strip,
              const QPoint& dot) {
        findings.add(Code::QuietZone, item.element,
                     QStringLiteral("%1 must be white around it; at the %2 there is %3")
                         .arg(sizeOf(zone, item.symbol->moduleDots),
                              QLatin1String(nameOf(strip.side)),
                              tool::nameOfItemAt(document, dot, item)));
    }

    const tool::CheckedDocument& document;
    tool::Findings& findings;
    const QImage& picture;
    const QPoint margin;
};

} // namespace

void tool::lintQuietZones(const CheckedDocument& document, Findings& findings) {
    QuietZoneLints lints(document, findings);
    for (const CheckedItem& item : document.items()) {
        if (isEvenSymbol(item)) {
            lints.check(item);
        }
    }
}
