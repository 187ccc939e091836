// Items that the edges of the canvas cut off. Where a value is missing the size is not known.
#include "check/lints.h"
#include "check/lone_item.h"
#include "check/symbol_place.h"

namespace {

using tool::Code;

class PlaceLints {
public:
    PlaceLints(const tool::CheckedDocument& checked, tool::Findings& collected)
        : document(checked), findings(collected), canvas(checked.drawn().canvas()),
          visible(QPoint(0, 0), tool::canvasSize(checked)) {}

    void check(const tool::CheckedItem& item) {
        // What has no size is told as that.
        if (item.drawn->drawnBox.isEmpty() || visible.contains(tool::reachOf(*item.drawn))) {
            return;
        }
        // Its box may be larger than what is to be seen of it.
        const QRect ink = tool::inkOf(*item.drawn, canvas).value_or(tool::reachOf(*item.drawn));
        if (!ink.isEmpty() && !visible.contains(ink)) {
            tell(item, ink);
        }
    }

private:
    void tell(const tool::CheckedItem& item, const QRect& ink) {
        const bool whole = !ink.intersects(visible);
        const QString lies = whole ? QStringLiteral("lies") : QStringLiteral("reaches");
        if (ink.bottom() > visible.bottom() && document.drawn().grows()) {
            findings.add(Code::BeyondMetre, item.element,
                         lies + QStringLiteral(" below the metre of roll that is drawn"));
        } else if (whole) {
            findings.add(Code::OutsideCanvas, item.element,
                         QStringLiteral("lies outside the canvas, which is %1 x %2 dots")
                             .arg(QString::number(canvas.width), QString::number(canvas.height)));
        } else {
            findings.add(Code::CutOff, item.element,
                         QStringLiteral("the canvas cuts off ") + cuts(ink));
        }
    }

    QString cuts(const QRect& ink) const {
        QStringList parts;
        const auto add = [&parts](int dots, const char* side) {
            if (dots > 0) {
                parts.append(tool::counted(dots, "dot") + QStringLiteral(" at the ") +
                             QLatin1String(side));
            }
        };
        add(visible.left() - ink.left(), "left");
        add(visible.top() - ink.top(), "top");
        add(ink.right() - visible.right(), "right");
        add(ink.bottom() - visible.bottom(), "bottom");
        return parts.join(QStringLiteral(", "));
    }

    const tool::CheckedDocument& document;
    tool::Findings& findings;
    const VelnorDrawableCanvas& canvas;
    const QRect visible;
};

bool isSymbolOrNone(const tool::CheckedItem& item) {
    return !item.symbol || !item.symbol->picture.isNull();
}

} // namespace

void tool::lintPlaces(const CheckedDocument& document, Findings& findings) {
    PlaceLints lints(document, findings);
    for (const CheckedItem& item : document.items()) {
        // Images without a picture have no box of their own.
        const bool isDrawn = item.drawn->type == velnor::ImageKind
                                 ? document.drawn().isDrawn(*item.drawn)
                                 : velnor::isVisible(*item.drawn) && isSymbolOrNone(item);
        if (isDrawn && !item.isIncomplete) {
            lints.check(item);
        }
    }
}
