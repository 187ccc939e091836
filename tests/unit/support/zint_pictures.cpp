#include "support/zint_pictures.h"

#include <stdexcept>

namespace {

constexpr int BytesPerDot = 3;

int encode(zint_symbol& symbol, const QByteArray& data) {
    return ZBarcode_Encode(&symbol, reinterpret_cast<const unsigned char*>(data.constData()),
                           data.size());
}

QImage pictureOf(const zint_symbol& symbol) {
    QImage picture(symbol.bitmap_width, symbol.bitmap_height, QImage::Format_RGB32);
    const unsigned char* dot = symbol.bitmap;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, qRgb(dot[0], dot[1], dot[2]));
            dot += BytesPerDot;
        }
    }
    return picture;
}

} // namespace

ZintSymbol makeSymbol(const ZintRequest& request) {
    ZintSymbol symbol(ZBarcode_Create());
    symbol->symbology = request.type;
    symbol->scale = request.scale;
    symbol->height = request.height;
    symbol->input_mode = request.inputMode;
    symbol->show_hrt = request.showText ? 1 : 0;
    symbol->option_1 = request.option1;
    symbol->option_2 = request.option2;
    symbol->option_3 = request.option3;
    qstrncpy(symbol->primary, request.primary.constData(), sizeof(symbol->primary));
    return symbol;
}

int zintResult(const ZintRequest& request) {
    const ZintSymbol symbol = makeSymbol(request);
    return encode(*symbol, request.data);
}

QImage zintPicture(const ZintRequest& request) {
    const ZintSymbol symbol = makeSymbol(request);
    if (encode(*symbol, request.data) >= ZINT_ERROR || ZBarcode_Buffer(symbol.get(), 0) != 0) {
        throw std::runtime_error(symbol->errtxt);
    }
    return pictureOf(*symbol);
}
