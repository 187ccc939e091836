// Barcodes that cannot be made, or that scanners may fail to read.
#include "check/lints.h"
#include "check/quiet_zone_sizes.h"
#include "check/written_number.h"

namespace {

using tool::CheckedItem;
using tool::Code;
using velnor::BarcodeSymbol;
using Barcode = VelnorDrawableBarcode;

constexpr int QuarterTurn = 90;

// zint numbers its words ("Error 269: ..."); those of the library have no number.
QString said(const QString& words, const char* byZint) {
    const int colon = words.indexOf(QLatin1String(": "));
    const bool isNumbered =
        words.startsWith(QLatin1String("Error ")) || words.startsWith(QLatin1String("Warning "));
    return isNumbered && colon > 0 ? QLatin1String(byZint) + words.mid(colon) : words;
}

void lintSymbol(const CheckedItem& item, const BarcodeSymbol& symbol, tool::Findings& findings) {
    const bool made = !symbol.picture.isNull();
    if (!symbol.refusal.isEmpty() || !made) {
        findings.add(Code::BarcodeRefused, item.element,
                     (made ? QStringLiteral("stays at its smallest: ") : QString()) +
                         said(symbol.refusal, "refused by zint"));
    }
    if (!symbol.warning.isEmpty()) {
        findings.add(Code::BarcodeWarning, item.element, said(symbol.warning, "zint warns"));
    }
}

QString sizeOf(int width, int height) {
    return QStringLiteral("%1 x %2").arg(QString::number(width), QString::number(height));
}

// Text, and the guards of EAN, stand below the bars and so below the box by rule.
bool mayStandBelowItsBox(const Barcode& barcode) {
    return tool::quietZoneOf(barcode.barcodeType, 0).hasBars;
}

void lintSize(const CheckedItem& item, const BarcodeSymbol& symbol, tool::Findings& findings) {
    const auto& barcode = static_cast<const Barcode&>(*item.parsed);
    const bool wider = barcode.width >= 1 && symbol.picture.width() > barcode.width;
    const bool taller = barcode.height >= 1 && symbol.picture.height() > barcode.height &&
                        !mayStandBelowItsBox(barcode);
    if (wider || taller) {
        findings.add(Code::BarcodeLarger, item.element,
                     QStringLiteral("is %1 dots, larger than its %2 of %3")
                         .arg(sizeOf(symbol.picture.width(), symbol.picture.height()),
                              wider ? QStringLiteral("width") : QStringLiteral("height"),
                              QString::number(wider ? barcode.width : barcode.height)));
    }
    if (symbol.moduleDots <= 1) {
        findings.add(Code::BarcodeModule, item.element,
                     QStringLiteral("its modules are one dot; a larger box gives larger ones"));
    }
}

void lintRotation(const CheckedItem& item, tool::Findings& findings) {
    const auto rotation = tool::numberIn(item.element, "rotation");
    if (rotation && rotation->number != velnor::NotGiven && rotation->number % QuarterTurn != 0 &&
        std::abs(rotation->number) <= 4 * QuarterTurn) {
        findings.add(
            Code::BarcodeRotation, rotation->element,
            QStringLiteral("turned by %1 degrees its modules are not even; use quarter turns")
                .arg(rotation->number));
    }
}

// Data that are missing and types that do not exist are the library's own findings.
bool isToldAlready(const Barcode& barcode) {
    constexpr int LastType = 142;
    return barcode.text.isEmpty() || barcode.barcodeType < 1 || barcode.barcodeType > LastType;
}

} // namespace

void tool::lintBarcodes(const CheckedDocument& document, Findings& findings) {
    for (const CheckedItem& item : document.items()) {
        if (!item.symbol || isToldAlready(static_cast<const Barcode&>(*item.parsed))) {
            continue;
        }
        lintRotation(item, findings);
        if (item.isIncomplete) {
            continue;
        }
        lintSymbol(item, *item.symbol, findings);
        if (!item.symbol->picture.isNull()) {
            lintSize(item, *item.symbol, findings);
        }
    }
}
