#include "render/picture_scan.h"

#include "library_limits.h"

#include <QIODevice>
#include <QtEndian>

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
        const bool isInside = position < file.size() && file.seek(position);
        const QByteArray header = isInside ? file.read(HeaderSize) : QByteArray();
        if (header.size() < HeaderSize) {
            return true; // libpng finds what is missing
        }
        const QByteArray type = header.mid(4);
        const qint64 length = qFromBigEndian<quint32>(header.constData());
        if (length > file.size() - position - HeaderSize) {
            return false; // libpng takes the memory before it reads
        }
        texts += isCompressedText(type, file, length) ? 1 : 0;
        profiles += type == "iCCP" ? 1 : 0;
        if (texts > velnor::MaximumPictureTexts || profiles > velnor::MaximumPictureTexts) {
            return false;
        }
        position += HeaderSize + length + ChecksumSize;
    }
    return false;
}

bool isSafe(QIODevice& file, const QByteArray& format) {
    if (format == "png") {
        return pngIsSafe(file);
    }
    if (format == "jpeg" || format == "jpg") {
        return jpegIsSafe(file);
    }
    return true;
}

} // namespace

bool velnor::isSafeToDecode(QIODevice& file, const QByteArray& format) {
    file.seek(0);
    const bool safe = isSafe(file, format);
    return file.seek(0) && safe;
}
