// What zint is asked to encode. The benchmark program is linked with --wrap, so that every call of
// ZBarcode_Encode and ZBarcode_Buffer in it comes by here.
#ifndef VELNOR_BENCHMARKS_ENCODINGS_H
#define VELNOR_BENCHMARKS_ENCODINGS_H

#include <QByteArray>

#include <array>
#include <vector>

struct zint_symbol;

namespace bench {

struct Encoding {
    int symbology = 0;
    int inputMode = 0;
    bool showText = false;
    float height = 0;
    float scale = 1; // when it was drawn
    std::array<int, 3> options{};
    QByteArray primary;
    QByteArray data;
};

// Records what is encoded during its life. There is one at a time.
class EncodingRecorder {
public:
    EncodingRecorder();
    ~EncodingRecorder();
    EncodingRecorder(const EncodingRecorder&) = delete;
    EncodingRecorder& operator=(const EncodingRecorder&) = delete;

    const std::vector<Encoding>& encodings() const { return recorded; }

    // How often the symbol was encoded that was encoded most often. One symbol is what has the same
    // symbology and data, whatever its size.
    int mostForOneSymbol() const;

    // Called before zint is.
    static void encodes(const zint_symbol& symbol, const QByteArray& data);
    static void draws(const zint_symbol& symbol);

private:
    std::vector<Encoding> recorded;
};

} // namespace bench

#endif
