#include "render/picture_scan.h"

#include "library_limits.h"
#include "spare_memory.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <iterator>

namespace {

// The markers of a JPEG file, found as libjpeg finds them: it skips whatever stands between two
// segments, and the data of a scan end at the next marker.
class JpegMarkers {
public:
    enum Code { StartOfScan = 0xDA, EndOfImage = 0xD9, FillByte = 0xFF };

    explicit JpegMarkers(QIODevice& jpegFile) : file(jpegFile) {}

    // EndOfImage where the file ends without one.
    int next() {
        int code = 0; // a byte 0xFF of the data is followed by 0
        while (code == 0) {
            skipToFillByte();
            code = FillByte;
            while (code == FillByte) {
                code = nextByte();
            }
        }
        return code == EndOfFile ? EndOfImage : code;
    }

    void skipSegment() {
        constexpr int LengthSize = 2;
        int length = nextByte() * 256;
        length += nextByte();
        for (int left = length - LengthSize; left > 0 && nextByte() != EndOfFile; --left) {
        }
    }

private:
    static constexpr int EndOfFile = -1;

    bool readBlock() {
        constexpr qint64 BlockSize = 64LL * 1024;
        block = file.read(BlockSize);
        position = 0;
        return !block.isEmpty();
    }

    int nextByte() {
        if (position == block.size() && !readBlock()) {
            return EndOfFile;
        }
        return static_cast<uchar>(block.at(position++));
    }

    void skipToFillByte() {
        int found = block.indexOf('\xFF', position);
        while (found < 0 && readBlock()) {
            found = block.indexOf('\xFF');
        }
        position = found < 0 ? block.size() : found;
    }

    QIODevice& file;
    QByteArray block;
    int position = 0;
};

bool hasSegment(int marker) {
    constexpr int FirstFrame = 0xC0; // those below are reserved, and libjpeg does not read on
    constexpr int FirstRestart = 0xD0;
    constexpr int StartOfImage = 0xD8;
    return marker >= FirstFrame && (marker < FirstRestart || marker > StartOfImage);
}

// Each scan of a progressive JPEG goes over the whole picture, and takes a few bytes.
bool jpegIsSafe(QIODevice& file) {
    JpegMarkers markers(file);
    int scans = 0;
    int segments = 0;
    for (int marker = markers.next(); marker != JpegMarkers::EndOfImage; marker = markers.next()) {
        if (!hasSegment(marker)) {
            continue;
        }
        scans += marker == JpegMarkers::StartOfScan ? 1 : 0;
        ++segments;
        if (scans > velnor::MaximumPictureScans || segments > velnor::MaximumPictureSegments) {
            return false;
        }
        markers.skipSegment();
    }
    return true;
}

// Fewer where the file ends.
QByteArray bytesAt(qint64 position, qint64 count, QIODevice& file) {
    return position < file.size() && file.seek(position) ? file.read(count) : QByteArray();
}

// An iTXt chunk says behind its keyword whether its text is compressed.
bool isCompressedText(const QByteArray& type, QIODevice& content, qint64 length) {
    constexpr qint64 LongestKeyword = 79;
    if (type != "iTXt") {
        return type == "zTXt";
    }
    const QByteArray start = content.read(qMin(length, LongestKeyword + 2));
    const int keywordEnd = start.indexOf('\0');
    return keywordEnd >= 0 && keywordEnd + 1 < start.size() && start.at(keywordEnd + 1) != 0;
}

// Compressed texts expand a thousandfold, and all of them are kept at once. So do colour profiles, one
// after the other.
bool pngIsSafe(QIODevice& file) {
    constexpr qint64 SignatureSize = 8;
    constexpr qint64 HeaderSize = 8; // length and type
    constexpr qint64 ChecksumSize = 4;
    int texts = 0;
    int profiles = 0;
    qint64 position = SignatureSize;
    for (int chunks = 0; chunks <= velnor::MaximumPictureChunks; ++chunks) {
        const QByteArray header = bytesAt(position, HeaderSize, file);
        if (header.size() < HeaderSize) {
            return true; // libpng finds what is missing
        }
        const QByteArray type = header.mid(4);
        const qint64 length = qFromBigEndian<quint32>(header.constData());
        texts += isCompressedText(type, file, length) ? 1 : 0;
        profiles += type == "iCCP" ? 1 : 0;
        if (texts > velnor::MaximumPictureTexts || profiles > velnor::MaximumPictureTexts) {
            return false;
        }
        position += HeaderSize + length + ChecksumSize;
    }
    return false;
}

template <typename Number>
Number numberIn(const QByteArray& bytes, int position) {
    return qFromLittleEndian<Number>(bytes.constData() + position);
}

bool isIcon(const QByteArray& format) {
    return format == "ico" || format == "cur";
}

// An icon's first picture, as the directory announces it. Qt reads no other.
struct IconEntry {
    quint8 width; // 0: as the bitmap says
    quint8 height;
    quint16 depth; // for a bitmap that says none
    quint32 size;
    quint32 offset;
};

IconEntry firstEntry(QIODevice& icon) {
    constexpr qint64 DirectorySize = 6;
    constexpr int EntrySize = 16;
    const QByteArray entry = bytesAt(DirectorySize, EntrySize, icon).leftJustified(EntrySize, '\0');
    return {numberIn<quint8>(entry, 0), numberIn<quint8>(entry, 1), numberIn<quint16>(entry, 6),
            numberIn<quint32>(entry, 8), numberIn<quint32>(entry, 12)};
}

// Qt leaves dots of other depths, and of a negative number of colours, as they are in memory.
bool isFilledByQt(int depth, quint32 colours) {
    constexpr int Depths[] = {1, 4, 8, 24, 32};
    constexpr int LargestIndexed = 8;
    constexpr quint32 MostColours = 256;
    return std::find(std::begin(Depths), std::end(Depths), depth) != std::end(Depths) &&
           (depth > LargestIndexed || colours <= MostColours);
}

bool iconBitmapIsSafe(QIODevice& icon) {
    constexpr int HeaderSize = 40;
    const IconEntry entry = firstEntry(icon);
    const QByteArray header = bytesAt(entry.offset, HeaderSize, icon);
    if (header.size() < HeaderSize) {
        return false;
    }
    const qint64 width = entry.width != 0 ? entry.width : numberIn<qint32>(header, 4);
    // The height of a bitmap counts its mask too.
    const qint64 height = entry.height != 0 ? entry.height : numberIn<qint32>(header, 8) / 2;
    const auto ownDepth = numberIn<quint16>(header, 14);
    return width > 0 && height > 0 && width * height <= velnor::MaximumPictureDots &&
           isFilledByQt(ownDepth != 0 ? ownDepth : entry.depth, numberIn<quint32>(header, 32));
}

bool isSafe(QIODevice& file, const QByteArray& format) {
    if (format == "png") {
        return pngIsSafe(file);
    }
    if (format == "jpeg" || format == "jpg") {
        return jpegIsSafe(file);
    }
    return !isIcon(format) || iconBitmapIsSafe(file);
}

} // namespace

bool velnor::isSafeToDecode(QIODevice& file, const QByteArray& format) {
    file.seek(0);
    const bool safe = isSafe(file, format);
    return file.seek(0) && safe;
}

QByteArray velnor::pngInIcon(QIODevice& file, const QByteArray& format) {
    const QByteArray signature("\x89PNG\r\n\x1a\n");
    if (!isIcon(format)) {
        return {};
    }
    const IconEntry entry = firstEntry(file);
    if (bytesAt(entry.offset, signature.size(), file) != signature) {
        return {};
    }
    const qint64 size = qMin<qint64>(entry.size, file.size() - entry.offset);
    requireMemory(size);
    return bytesAt(entry.offset, size, file);
}
