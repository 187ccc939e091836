#include "render/barcode_item.h"

#include "render/velnorbarcode.h"

velnor::BarcodeSymbol velnor::symbolOf(const VelnorDrawableBarcode& item) {
    VelnorBarcode barcode;
    QImage picture;
    barcode.CreateBarcode(item.barcodeType, item.hrt, item.text.toUtf8().constData(),
                          item.inputmode, item.primary.toUtf8().constData(), item.option1,
                          item.option2, item.option3, &picture, item.width, item.height);
    return {picture, barcode.moduleDots(), barcode.refusal(), barcode.warning()};
}
