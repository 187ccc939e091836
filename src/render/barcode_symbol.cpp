// One encoding: a zint symbol is set up, encoded and drawn.
#include "document/codes.h"
#include "library_limits.h"
#include "render/drawable_symbol.h"
#include "render/velnorbarcode.h"
#include "spare_memory.h"

#include <QImage>

#include <zint.h>

#include <cstring>
#include <memory>
#include <new>

namespace {

constexpr int Refused = -1;
const QLatin1String BeyondLimits("the symbol is beyond the limits of the library");
constexpr int InputModes = 5;

struct SymbolDeleter {
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using SymbolPointer = std::unique_ptr<zint_symbol, SymbolDeleter>;

void setOption(int& option, int value) {
    if (value != velnor::BarcodeOptionNotGiven) {
        option = value;
    }
}

void setPrimary(zint_symbol& symbol, const char* primary) {
    if (primary != nullptr && *primary != '\0') {
        std::strncpy(symbol.primary, primary, sizeof symbol.primary - 1);
        symbol.primary[sizeof symbol.primary - 1] = '\0';
    }
}

void failWithoutMemory(int zintResult) {
    if (zintResult == ZINT_ERROR_MEMORY) {
        throw std::bad_alloc();
    }
}

// zint found an option invalid and went on without it, or failed. An inserted character set
// switch and a symbol beside its standard stand for complete, readable symbols.
bool isComplete(int encodingResult) {
    failWithoutMemory(encodingResult);
    return encodingResult == 0 || encodingResult == ZINT_WARN_USES_ECI ||
           encodingResult == ZINT_WARN_NONCOMPLIANT;
}

bool draw(zint_symbol& symbol) {
    constexpr double BytesPerDot = 5.0; // zint's dots, their colours, and the picture made of them
    velnor::requireMemory(static_cast<qint64>(velnor::pictureDots(symbol) * BytesPerDot));
    const int drawn = ZBarcode_Buffer(&symbol, 0);
    failWithoutMemory(drawn);
    return drawn == 0;
}

// One bit a dot, as such a symbol's own file has it: rotated by odd angles, a picture of another
// depth gets other dots. Ultracode is the one symbology with colours.
QImage toPicture(const zint_symbol& symbol) {
    const QImage dots(symbol.bitmap, symbol.bitmap_width, symbol.bitmap_height,
                      symbol.bitmap_width * 3, QImage::Format_RGB888);
    QImage picture = dots.convertToFormat(
        symbol.symbology == BARCODE_ULTRA ? QImage::Format_Indexed8 : QImage::Format_Mono,
        Qt::MonoOnly | Qt::ThresholdDither);
    if (picture.isNull() && !dots.isNull()) {
        throw std::bad_alloc();
    }
    return picture;
}

} // namespace

int VelnorBarcode::CreateBaseBarcode(int type, int hrt, const char* data, int inputmode,
                                     const char* primary, int option1, int option2, int option3,
                                     QImage* picture, int* doubledWidth, int* doubledHeight,
                                     int barHeight, float scale) {
    const SymbolPointer symbol(ZBarcode_Create());
    const size_t length = data == nullptr ? 0 : std::strlen(data);
    if (!symbol || length > velnor::MaximumBarcodeData) {
        refusalWords = BeyondLimits;
        return Refused;
    }
    symbol->symbology = type;
    symbol->input_mode = inputmode >= 0 && inputmode < InputModes ? inputmode : UNICODE_MODE;
    symbol->show_hrt = hrt == 1 ? 1 : 0;
    if (barHeight != -1) {
        symbol->height = static_cast<float>(barHeight);
    }
    if (scale != 0.0F) {
        symbol->scale = scale;
    }
    setOption(symbol->option_1, option1);
    setOption(symbol->option_2, option2);
    setOption(symbol->option_3, option3);
    setPrimary(*symbol, primary);

    const int encoded = escape_char_process(
        symbol.get(), reinterpret_cast<const unsigned char*>(data), static_cast<int>(length));
    const bool complete = isComplete(encoded);
    if (!complete || !velnor::isDrawable(*symbol) || !draw(*symbol)) {
        refusalWords = complete ? BeyondLimits : QString::fromUtf8(symbol->errtxt);
        return Refused;
    }
    refusalWords.clear();
    warningWords =
        encoded == ZINT_WARN_NONCOMPLIANT ? QString::fromUtf8(symbol->errtxt) : QString();
    drawnModule = velnor::dotsPerModule(*symbol);
    *picture = toPicture(*symbol);
    *doubledWidth = symbol->width * 2;
    *doubledHeight = static_cast<int>(symbol->height * 2);
    return 0;
}
