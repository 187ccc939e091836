#include "render/picture_scan.h"

#include "library_limits.h"

#include <QIODevice>
#include <QtEndian>

namespace {

// Each scan of a progressive JPEG goes over the whole picture, and takes a few bytes.
bool jpegIsSafe(QIODevice& file) {
    constexpr qint64 BlockSize = 64LL * 1024;
    const QByteArray startOfScan("\xFF\xDA", 2);
    int scans = 0;
    QByteArray block;
    while (!file.atEnd() && scans <= velnor::MaximumPictureScans) {
        // The last byte again: a marker may lie across two blocks.
        block = block.right(1) + file.read(BlockSize);
        scans += block.count(startOfScan);
    }
    return scans <= velnor::MaximumPictureScans;
}

// Compressed texts expand a thousandfold, and all of them are kept at once.
bool pngIsSafe(QIODevice& file) {
    constexpr qint64 SignatureSize = 8;
    constexpr qint64 HeaderSize = 8; // length and type
    constexpr qint64 ChecksumSize = 4;
    int texts = 0;
    int chunks = 0;
    qint64 position = SignatureSize;
    while (file.seek(position) && texts <= velnor::MaximumPictureTexts &&
           chunks <= velnor::MaximumPictureChunks) {
        const QByteArray header = file.read(HeaderSize);
        if (header.size() < HeaderSize) {
            return true; // libpng finds what is missing
        }
        const QByteArray type = header.mid(4);
        texts += type == "zTXt" || type == "iTXt" ? 1 : 0;
        ++chunks;
        position += HeaderSize + qFromBigEndian<quint32>(header.constData()) + ChecksumSize;
    }
    return texts <= velnor::MaximumPictureTexts && chunks <= velnor::MaximumPictureChunks;
}

bool isSafe(QIODevice& file, const QByteArray& format) {
    if (format == "png") {
        return pngIsSafe(file);
    }
    if (format == "jpeg" || format == "jpg") {
        return jpegIsSafe(file);
    }
    // The dimensions that an icon announces are not those of the picture in it.
    return format != "ico" && format != "cur";
}

} // namespace

bool velnor::isSafeToDecode(QIODevice& file, const QByteArray& format) {
    file.seek(0);
    const bool safe = isSafe(file, format);
    return file.seek(0) && safe;
}
