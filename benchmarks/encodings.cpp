#include "encodings.h"

#include <QPair>

#include <zint.h>

#include <algorithm>
#include <map>

namespace bench {

namespace {

EncodingRecorder* active = nullptr;

} // namespace

EncodingRecorder::EncodingRecorder() {
    active = this;
}

EncodingRecorder::~EncodingRecorder() {
    active = nullptr;
}

void EncodingRecorder::encodes(const zint_symbol& symbol, const QByteArray& data) {
    if (active != nullptr) {
        active->recorded.push_back({symbol.symbology,
                                    symbol.input_mode,
                                    symbol.show_hrt != 0,
                                    symbol.height,
                                    symbol.scale,
                                    {symbol.option_1, symbol.option_2, symbol.option_3},
                                    QByteArray(symbol.primary),
                                    data});
    }
}

void EncodingRecorder::draws(const zint_symbol& symbol) {
    if (active != nullptr && !active->recorded.empty()) {
        active->recorded.back().scale = symbol.scale;
    }
}

int EncodingRecorder::mostForOneSymbol() const {
    std::map<QPair<int, QByteArray>, int> counts;
    int most = 0;
    for (const Encoding& encoding : recorded) {
        most = std::max(most, ++counts[{encoding.symbology, encoding.data}]);
    }
    return most;
}

} // namespace bench

// The linker gives these names to the functions of zint and to those that stand before them.
extern "C" {

int encodeByZint(zint_symbol* symbol, const unsigned char* data,
                 int length) __asm__("__real_ZBarcode_Encode");
int drawByZint(zint_symbol* symbol, int angle) __asm__("__real_ZBarcode_Buffer");
int recordAndEncode(zint_symbol* symbol, const unsigned char* data,
                    int length) __asm__("__wrap_ZBarcode_Encode");
int recordAndDraw(zint_symbol* symbol, int angle) __asm__("__wrap_ZBarcode_Buffer");

int recordAndEncode(zint_symbol* symbol, const unsigned char* data, int length) {
    bench::EncodingRecorder::encodes(*symbol,
                                     QByteArray(reinterpret_cast<const char*>(data), length));
    return encodeByZint(symbol, data, length);
}

int recordAndDraw(zint_symbol* symbol, int angle) {
    bench::EncodingRecorder::draws(*symbol);
    return drawByZint(symbol, angle);
}
}
