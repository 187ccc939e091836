// The bytes that a barcode's data stand for.
#ifndef VELNOR_RENDER_BARCODE_DATA_H
#define VELNOR_RENDER_BARCODE_DATA_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace velnor {

// "0A,FF" as two bytes. Nothing when a part is no hexadecimal number, is empty, or is above FF.
std::optional<QByteArray> bytesFromHexList(const QString& list);

// The bytes of a text, with its backslash escapes replaced.
QByteArray bytesFromEscapedText(const QByteArray& text);

} // namespace velnor

#endif
