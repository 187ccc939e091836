#include "support/picture_files.h"

#include <QDataStream>
#include <QtEndian>

#include <stdexcept>

namespace {

constexpr quint32 CrcPolynomial = 0xedb88320;

quint32 crcOf(const QByteArray& bytes) {
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? CrcPolynomial : 0);
        }
    }
    return ~crc;
}

QByteArray bigEndian(quint32 number) {
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray& name, const QByteArray& data) {
    return bigEndian(static_cast<quint32>(data.size())) + name + data +
           bigEndian(crcOf(name + data));
}

} // namespace

QString writePicture(const ScratchFolder& folder, const QString& name, const QImage& picture) {
    const QString path = folder.path(name);
    if (!picture.save(path, "PNG")) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
    return path;
}

QImage colourfulPicture(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256) * 16 + y / 256));
        }
    }
    return picture;
}

QByteArray pngThatAnnounces(quint32 width, quint32 height) {
    constexpr char OneBitGrey[] = {1, 0, 0, 0, 0};
    const QByteArray header =
        bigEndian(width) + bigEndian(height) + QByteArray(OneBitGrey, sizeof(OneBitGrey));
    const QByteArray lengthAndZlib = qCompress(QByteArray(64, '\0'));
    return QByteArrayLiteral("\x89PNG\r\n\x1a\n") + chunk("IHDR", header) +
           chunk("IDAT", lengthAndZlib.mid(4)) + chunk("IEND", {});
}

QByteArray iconOf(const QByteArray& picture) {
    QByteArray icon;
    QDataStream stream(&icon, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(1);
    stream << quint8(16) << quint8(16) << quint16(0) << quint16(1) << quint16(32);
    stream << static_cast<quint32>(picture.size()) << static_cast<quint32>(icon.size() + 4);
    return icon + picture;
}
