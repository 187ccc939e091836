// Cells and spans that the grid does not have, and angles that count as none.
#include "check/lints.h"
#include "check/written_number.h"

namespace {

using tool::CheckedItem;
using tool::Code;

// One direction of the grid.
struct Axis {
    const char* cell;
    const char* span;
    int count;
    int index; // the item's, as parsed
};

void lintCell(const QDomElement& item, const Axis& axis, tool::Findings& findings) {
    const auto cell = tool::numberIn(item, axis.cell);
    if (!cell) {
        return;
    }
    if (cell->number >= axis.count) {
        findings.add(Code::CellOutside, cell->element,
                     QStringLiteral("%1 %2 became 0: the last one is %3")
                         .arg(QLatin1String(axis.cell), QString::number(cell->number),
                              QString::number(axis.count - 1)));
    } else if (cell->number < 0) {
        findings.add(Code::CellOutside, cell->element,
                     QStringLiteral("%1 %2 lies outside the grid, which begins with 0")
                         .arg(QLatin1String(axis.cell), QString::number(cell->number)));
    }
}

void lintSpan(const QDomElement& item, const Axis& axis, tool::Findings& findings) {
    const auto span = tool::numberIn(item, axis.span);
    if (!span) {
        return;
    }
    if (span->number < 1) {
        findings.add(Code::SpanOutside, span->element,
                     QStringLiteral("%1 %2 became 1: a span is 1 or more")
                         .arg(QLatin1String(axis.span), QString::number(span->number)));
    } else if (qint64(axis.index) + span->number > axis.count) {
        findings.add(Code::SpanOutside, span->element,
                     QStringLiteral("%1 %2 became 1: from %3 %4 on there are %5")
                         .arg(QLatin1String(axis.span), QString::number(span->number),
                              QLatin1String(axis.cell), QString::number(axis.index),
                              QString::number(axis.count - axis.index)));
    }
}

void lintAxis(const QDomElement& item, const Axis& axis, tool::Findings& findings) {
    lintCell(item, axis, findings);
    lintSpan(item, axis, findings);
}

void lintRotation(const QDomElement& item, tool::Findings& findings) {
    constexpr int FullTurn = 360;
    const auto rotation = tool::numberIn(item, "rotation");
    if (!rotation) {
        return;
    }
    if (rotation->number == velnor::NotGiven) {
        findings.add(Code::RotationRange, rotation->element,
                     QStringLiteral("rotation -1 stands for none; write 359"));
    } else if (rotation->number < -FullTurn || rotation->number > FullTurn) {
        findings.add(Code::RotationRange, rotation->element,
                     QStringLiteral("rotation %1 counts as none: angles are -360 to 360")
                         .arg(rotation->number));
    }
}

void lintSize(const CheckedItem& item, tool::Findings& findings) {
    const bool needsBox =
        item.parsed->type == velnor::RectangleKind || item.parsed->type == velnor::EllipseKind;
    const QString missing = item.parsed->width < 1    ? QStringLiteral("width")
                            : item.parsed->height < 1 ? QStringLiteral("height")
                                                      : QString();
    if (needsBox && !missing.isEmpty()) {
        findings.add(Code::MissingSize, item.element,
                     QStringLiteral("needs a %1 of 1 or more").arg(missing));
    }
}

} // namespace

void tool::lintGrid(const CheckedDocument& document, Findings& findings) {
    const VelnorDrawableCanvas& canvas = document.parsedCanvas();
    for (const CheckedItem& item : document.items()) {
        lintAxis(item.element, {"row", "rowspan", canvas.rowCount, item.parsed->row}, findings);
        lintAxis(item.element, {"column", "columnspan", canvas.columnCount, item.parsed->column},
                 findings);
        lintRotation(item.element, findings);
        lintSize(item, findings);
    }
}
