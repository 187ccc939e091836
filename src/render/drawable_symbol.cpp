#include "render/drawable_symbol.h"

#include "library_limits.h"

#include <zint.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

// Symbologies that take an add-on of two or five digits behind a plus sign.
constexpr int SymbologiesWithAddOn[] = {
    BARCODE_EANX,     BARCODE_EANX_CHK, BARCODE_UPCA,    BARCODE_UPCA_CHK, BARCODE_UPCE,
    BARCODE_UPCE_CHK, BARCODE_ISBNX,    BARCODE_EANX_CC, BARCODE_UPCA_CC,  BARCODE_UPCE_CC,
};

bool hasAddOn(const zint_symbol& symbol) {
    const auto* found = std::find(std::begin(SymbologiesWithAddOn), std::end(SymbologiesWithAddOn),
                                  symbol.symbology);
    return found != std::end(SymbologiesWithAddOn) &&
           std::memchr(symbol.text, '+', sizeof symbol.text) != nullptr;
}

// In modules. Rows without a height of their own share what the others leave.
float heightOfLastRow(const zint_symbol& symbol) {
    if (symbol.rows < 1) {
        return 0.0F;
    }
    const float* heights = symbol.row_height;
    const float last = heights[symbol.rows - 1];
    if (last > 0.0F) {
        return last;
    }
    float shared = symbol.height;
    int sharers = 0;
    for (int row = 0; row < symbol.rows; ++row) {
        shared -= heights[row];
        sharers += heights[row] > 0.0F ? 0 : 1;
    }
    return shared / static_cast<float>(sharers);
}

// The bars of an add-on begin below the digits above them. zint draws them outside its picture
// where the symbol's own bars end before.
bool addOnStaysInPicture(const zint_symbol& symbol) {
    constexpr float DigitsAboveAddOn = 8.0F; // modules
    return !hasAddOn(symbol) || heightOfLastRow(symbol) >= DigitsAboveAddOn;
}

} // namespace

double velnor::dotsPerModule(const zint_symbol& symbol) {
    return (symbol.symbology == BARCODE_MAXICODE ? 10.0 : 2.0) * static_cast<double>(symbol.scale);
}

double velnor::pictureDots(const zint_symbol& symbol) {
    const double side = dotsPerModule(symbol);
    return symbol.width * side * symbol.height * side;
}

bool velnor::isDrawable(const zint_symbol& symbol) {
    return pictureDots(symbol) <= static_cast<double>(MaximumPictureDots) &&
           addOnStaysInPicture(symbol);
}
