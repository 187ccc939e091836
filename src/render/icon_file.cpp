#include "render/icon_file.h"

#include "spare_memory.h"

#include <QIODevice>
#include <QVector>
#include <QtEndian>

namespace {

constexpr int LongestSide = 256;
constexpr int MostColours = 256;
constexpr int LargestIndexedDepth = 8;
constexpr int DepthWithAlpha = 32;
constexpr int MaskDepth = 1;

// Fewer where the file ends.
QByteArray bytesAt(qint64 position, qint64 count, QIODevice& file) {
    return position < file.size() && file.seek(position) ? file.read(count) : QByteArray();
}

template <typename Number>
Number numberIn(const QByteArray& bytes, int position) {
    return qFromLittleEndian<Number>(bytes.constData() + position);
}

// What the directory says of the first picture.
struct Entry {
    quint8 width; // 0: as the bitmap says
    quint8 height;
    quint16 depth; // for a bitmap that says none
    quint32 size;
    quint32 offset;
};

Entry firstEntry(QIODevice& icon) {
    constexpr qint64 DirectorySize = 6;
    constexpr int EntrySize = 16;
    const QByteArray entry = bytesAt(DirectorySize, EntrySize, icon).leftJustified(EntrySize, '\0');
    return {numberIn<quint8>(entry, 0), numberIn<quint8>(entry, 1), numberIn<quint16>(entry, 6),
            numberIn<quint32>(entry, 8), numberIn<quint32>(entry, 12)};
}

struct Bitmap {
    int width = 0;
    int height = 0;
    int depth = 0;
    quint32 coloursUsed = 0; // 0: all of the depth
};

// Leaves the file behind the header. Without dots where there is none.
Bitmap readHeader(QIODevice& icon) {
    constexpr int HeaderSize = 40;
    const Entry entry = firstEntry(icon);
    const QByteArray header = bytesAt(entry.offset, HeaderSize, icon);
    if (header.size() < HeaderSize) {
        return {};
    }
    const int width = numberIn<qint32>(header, 4);
    const int height = numberIn<qint32>(header, 8) / 2; // the mask counts too
    const int depth = numberIn<quint16>(header, 14);
    return {entry.width != 0 ? entry.width : width, entry.height != 0 ? entry.height : height,
            depth != 0 ? depth : entry.depth, numberIn<quint32>(header, 32)};
}

bool mayBeRead(const Bitmap& bitmap) {
    const auto isSide = [](int dots) { return dots > 0 && dots <= LongestSide; };
    const bool isDepth = bitmap.depth == 1 || bitmap.depth == 4 || bitmap.depth == 8 ||
                         bitmap.depth == 24 || bitmap.depth == DepthWithAlpha;
    return isSide(bitmap.width) && isSide(bitmap.height) && isDepth;
}

// White for the colours that the file does not have. Empty where the table ends too early.
QVector<QRgb> readColours(const Bitmap& bitmap, QIODevice& icon) {
    constexpr int EntrySize = 4;
    QVector<QRgb> colours(MostColours, qRgb(255, 255, 255));
    if (bitmap.depth > LargestIndexedDepth) {
        return colours;
    }
    const quint32 count = bitmap.coloursUsed != 0 ? bitmap.coloursUsed : 1U << bitmap.depth;
    if (count > MostColours) {
        return {};
    }
    const int tableSize = static_cast<int>(count) * EntrySize;
    const QByteArray table = icon.read(tableSize);
    for (int i = 0; i < table.size() / EntrySize; ++i) {
        colours[i] = numberIn<quint32>(table, i * EntrySize) | qRgb(0, 0, 0);
    }
    return table.size() < tableSize ? QVector<QRgb>() : colours;
}

// Of a row of at most 8 bits a dot.
int numberOfDot(const char* row, qsizetype x, int depth) {
    const auto shift = static_cast<int>(8 - depth - x * depth % 8);
    return static_cast<uchar>(row[x * depth / 8]) >> shift & ((1 << depth) - 1);
}

QRgb colourOfDot(const char* row, qsizetype x, int depth, const QVector<QRgb>& colours) {
    if (depth == DepthWithAlpha) {
        return qFromLittleEndian<quint32>(row + x * 4);
    }
    if (depth > LargestIndexedDepth) {
        const auto* dot = reinterpret_cast<const uchar*>(row + x * 3);
        return qRgb(dot[2], dot[1], dot[0]);
    }
    return colours.at(numberOfDot(row, x, depth));
}

// A row ends at a multiple of 32 bits.
qsizetype rowSize(const Bitmap& bitmap, int depth) {
    return (qsizetype{bitmap.width} * depth + 31) / 32 * 4;
}

// From the bottom up. A dot that the mask covers is transparent.
QImage pictureOf(const Bitmap& bitmap, const QVector<QRgb>& colours, const QByteArray& rows,
                 const QByteArray& mask) {
    QImage picture(bitmap.width, bitmap.height, QImage::Format_ARGB32);
    for (int line = 0; line < bitmap.height; ++line) {
        const char* row = rows.constData() + line * rowSize(bitmap, bitmap.depth);
        const char* maskRow = mask.constData() + line * rowSize(bitmap, MaskDepth);
        auto* dots = reinterpret_cast<QRgb*>(picture.scanLine(bitmap.height - 1 - line));
        for (int x = 0; x < bitmap.width; ++x) {
            const bool isMasked = numberOfDot(maskRow, x, MaskDepth) != 0;
            dots[x] = isMasked ? 0 : colourOfDot(row, x, bitmap.depth, colours);
        }
    }
    return picture;
}

} // namespace

QByteArray velnor::pngInIcon(QIODevice& icon) {
    const QByteArray signature("\x89PNG\r\n\x1a\n");
    const Entry entry = firstEntry(icon);
    if (bytesAt(entry.offset, signature.size(), icon) != signature) {
        return {};
    }
    const qint64 size = qMin<qint64>(entry.size, icon.size() - entry.offset);
    requireMemory(size);
    return bytesAt(entry.offset, size, icon);
}

QImage velnor::bitmapInIcon(QIODevice& icon) {
    const Bitmap bitmap = readHeader(icon);
    if (!mayBeRead(bitmap)) {
        return {};
    }
    const QVector<QRgb> colours = readColours(bitmap, icon);
    const qsizetype rowsSize = rowSize(bitmap, bitmap.depth) * bitmap.height;
    const qsizetype maskSize = rowSize(bitmap, MaskDepth) * bitmap.height;
    const QByteArray rows = icon.read(rowsSize);
    // Dots of 32 bits say themselves how transparent they are.
    const QByteArray mask = bitmap.depth == DepthWithAlpha
                                ? QByteArray(static_cast<int>(maskSize), '\0')
                                : icon.read(maskSize);
    const bool isComplete =
        !colours.isEmpty() && rows.size() == rowsSize && mask.size() == maskSize;
    return isComplete ? pictureOf(bitmap, colours, rows, mask) : QImage();
}
