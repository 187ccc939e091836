#include "api/wide_text.h"

#include "handler/velnorxml.h"
#include "library_limits.h"

#include <QString>

#include <algorithm>

QByteArray velnor::utf8FromWide(const unsigned short* text, int length) {
    return QString::fromUtf16(text, length).toUtf8();
}

QByteArray velnor::scratchFor(int size) {
    return QByteArray(static_cast<int>(std::min(static_cast<qint64>(size) * 2, MaximumWideScratch)),
                      '\0');
}

void VelnorXml::FromtUtf8ToUtf16Buffer(const char* source, unsigned short* destination, int n) {
    const QString text = QString::fromUtf8(source);
    // Always leaves room for the terminator: a text of exactly n units loses its last one.
    const int count = std::min(text.size(), n - 1);
    std::copy_n(text.utf16(), count, destination);
    destination[count] = 0;
}
