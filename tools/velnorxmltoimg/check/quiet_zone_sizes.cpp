#include "check/quiet_zone_sizes.h"

#include <zint.h>

#include <algorithm>
#include <iterator>

namespace {

using tool::QuietZone;

struct Entry {
    int symbology;
    QuietZone zone;
};

constexpr QuietZone around(int modules) {
    return {false, modules, modules, modules, modules};
}

constexpr QuietZone beside(int left, int right) {
    return {true, left, 0, right, 0};
}

constexpr QuietZone Inside = beside(0, 0);
constexpr QuietZone Linear = beside(10, 10);
constexpr QuietZone Ean13 = beside(11, 7);
constexpr QuietZone Ean8 = beside(7, 7);
constexpr QuietZone UpcA = beside(9, 9);
constexpr QuietZone UpcE = beside(9, 7);

// GS1 DataBar has guards that stand for quiet zones, ITF-14 is drawn with its zones inside a frame.
constexpr Entry Entries[] = {
    {BARCODE_QRCODE, around(4)},
    {BARCODE_UPNQR, around(4)},
    {BARCODE_HIBC_QR, around(4)},
    {BARCODE_MICROQR, around(2)},
    {BARCODE_RMQR, around(2)},
    {BARCODE_HANXIN, around(3)},
    {BARCODE_DOTCODE, around(3)},
    {BARCODE_GRIDMATRIX, around(6)},
    {BARCODE_DATAMATRIX, around(1)},
    {BARCODE_HIBC_DM, around(1)},
    {BARCODE_MAXICODE, around(1)},
    {BARCODE_CODEONE, around(1)},
    {BARCODE_ULTRA, around(1)},
    {BARCODE_PDF417, around(2)},
    {BARCODE_PDF417COMP, around(2)},
    {BARCODE_HIBC_PDF, around(2)},
    {BARCODE_MICROPDF417, around(1)},
    {BARCODE_HIBC_MICPDF, around(1)},
    {BARCODE_AZTEC, around(0)},
    {BARCODE_AZRUNE, around(0)},
    {BARCODE_HIBC_AZTEC, around(0)},
    {BARCODE_DBAR_OMN, Inside},
    {BARCODE_DBAR_LTD, Inside},
    {BARCODE_DBAR_EXP, Inside},
    {BARCODE_DBAR_STK, Inside},
    {BARCODE_DBAR_OMNSTK, Inside},
    {BARCODE_DBAR_EXPSTK, Inside},
    {BARCODE_DBAR_OMN_CC, Inside},
    {BARCODE_DBAR_LTD_CC, Inside},
    {BARCODE_DBAR_EXP_CC, Inside},
    {BARCODE_DBAR_STK_CC, Inside},
    {BARCODE_DBAR_OMNSTK_CC, Inside},
    {BARCODE_DBAR_EXPSTK_CC, Inside},
    {BARCODE_ITF14, Inside},
    {BARCODE_EANX, Ean13},
    {BARCODE_EANX_CHK, Ean13},
    {BARCODE_EANX_CC, Ean13},
    {BARCODE_ISBNX, Ean13},
    {BARCODE_UPCA, UpcA},
    {BARCODE_UPCA_CHK, UpcA},
    {BARCODE_UPCA_CC, UpcA},
    {BARCODE_UPCE, UpcE},
    {BARCODE_UPCE_CHK, UpcE},
    {BARCODE_UPCE_CC, UpcE},
};

bool isEan(int symbology) {
    return symbology == BARCODE_EANX || symbology == BARCODE_EANX_CHK ||
           symbology == BARCODE_EANX_CC;
}

} // namespace

int tool::QuietZone::largest() const {
    return std::max({left, top, right, bottom});
}

tool::QuietZone tool::quietZoneOf(int symbology, double barModules) {
    constexpr double WidestEan8 = 75; // 67 modules, and the separators of a composite symbol
    if (isEan(symbology) && barModules < WidestEan8) {
        return Ean8;
    }
    const auto* found =
        std::find_if(std::begin(Entries), std::end(Entries),
                     [symbology](const Entry& entry) { return entry.symbology == symbology; });
    return found == std::end(Entries) ? Linear : found->zone;
}
