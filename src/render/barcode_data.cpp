#include "render/barcode_data.h"

#include "render/velnorbarcode.h"

#include <QStringList>

#include <zint.h>

#include <algorithm>
#include <iterator>

namespace {

struct Escape {
    char letter;
    char byte;
};

constexpr Escape Escapes[] = {
    {'0', 0x00}, {'E', 0x04}, {'a', 0x07}, {'b', 0x08}, {'t', 0x09}, {'n', 0x0A},  {'v', 0x0B},
    {'f', 0x0C}, {'r', 0x0D}, {'G', 0x1D}, {'R', 0x1E}, {'e', 0x1B}, {'\\', 0x5C},
};

const Escape* findEscape(char letter) {
    const auto* found =
        std::find_if(std::begin(Escapes), std::end(Escapes),
                     [letter](const Escape& escape) { return escape.letter == letter; });
    return found == std::end(Escapes) ? nullptr : found;
}

// Symbologies whose bars have the one height that their standard gives them.
constexpr int FixedHeightSymbologies[] = {
    BARCODE_POSTNET,    BARCODE_PDF417,   BARCODE_MAXICODE,    BARCODE_QRCODE,  BARCODE_AUSPOST,
    BARCODE_AUSREPLY,   BARCODE_AUSROUTE, BARCODE_AUSREDIRECT, BARCODE_RM4SCC,  BARCODE_DATAMATRIX,
    BARCODE_RSS14STACK, BARCODE_PLANET,   BARCODE_MICROPDF417, BARCODE_ONECODE,
};

} // namespace

std::optional<QByteArray> velnor::bytesFromHexList(const QString& list) {
    QByteArray bytes;
    for (const QString& part : list.split(QLatin1Char(','), Qt::KeepEmptyParts)) {
        bool converted = false;
        const uint value = part.toUInt(&converted, 16);
        if (!converted || value > 0xFF) {
            return std::nullopt;
        }
        bytes.append(static_cast<char>(value));
    }
    return bytes;
}

QByteArray velnor::bytesFromEscapedText(const QByteArray& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const bool mayEscape = text[i] == '\\' && i + 1 < text.size();
        const Escape* escape = mayEscape ? findEscape(text[i + 1]) : nullptr;
        bytes.append(escape != nullptr ? escape->byte : text[i]);
        i += escape != nullptr ? 1 : 0;
    }
    return bytes;
}

bool VelnorBarcode::VariableHeightAvailable(int symbology) {
    return std::find(std::begin(FixedHeightSymbologies), std::end(FixedHeightSymbologies),
                     symbology) == std::end(FixedHeightSymbologies);
}

int VelnorBarcode::escape_char_process(zint_symbol* symbol, const unsigned char* data, int length) {
    const QByteArray text(reinterpret_cast<const char*>(data), length);
    std::optional<QByteArray> bytes;
    if (symbol->input_mode == DATA_MODE) {
        bytes = velnor::bytesFromHexList(QString::fromUtf8(text));
        symbol->input_mode = bytes ? DATA_MODE : UNICODE_MODE;
    }
    if (!bytes) {
        bytes = velnor::bytesFromEscapedText(text);
    }
    return ZBarcode_Encode(symbol, reinterpret_cast<const unsigned char*>(bytes->constData()),
                           bytes->size());
}
