// Barcodes asked of zint directly, with which the library's barcode files are compared.
#ifndef VELNOR_TESTS_ZINT_PICTURES_H
#define VELNOR_TESTS_ZINT_PICTURES_H

#include <QByteArray>
#include <QImage>

#include <zint.h>

#include <memory>

struct ZintDeleter {
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using ZintSymbol = std::unique_ptr<zint_symbol, ZintDeleter>;

constexpr float HalfScale = 0.5F;

// What a symbol is made with: zint's defaults unless set.
struct ZintRequest {
    int type = BARCODE_CODE128;
    QByteArray data = "Ticket 4711";
    float scale = HalfScale;
    float height = 0;
    int inputMode = UNICODE_MODE;
    bool showText = false;
    QByteArray primary = {};
    int option1 = -1;
    int option2 = 0;
    int option3 = 0;
};

// A new symbol with the settings of a request, not yet encoded.
ZintSymbol makeSymbol(const ZintRequest& request);
// What zint answers when asked to encode the request.
int zintResult(const ZintRequest& request);
// zint's picture: black and white dots. Throws when zint does not make one.
QImage zintPicture(const ZintRequest& request);

#endif
