// The symbol of a barcode item.
#ifndef VELNOR_RENDER_BARCODE_ITEM_H
#define VELNOR_RENDER_BARCODE_ITEM_H

#include "document/elements.h"

#include <QImage>

namespace velnor {

struct BarcodeSymbol {
    QImage picture;    // null where the data make none
    double moduleDots; // the side of a module
    QString refusal;   // why there is no picture, or none that fits the box; else empty
    QString warning;   // what zint says where the data go beside the standard of the symbology
};

BarcodeSymbol symbolOf(const VelnorDrawableBarcode& item);

} // namespace velnor

#endif
