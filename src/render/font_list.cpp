// The fonts that the process can use.
#include "render/gui_application.h"
#include "render/velnorimage.h"

#include <QFontDatabase>

#include <algorithm>
#include <memory>

QStringList VelnorImage::ListAvailableFont() {
    QStringList entries;
    if (!velnor::guiApplicationExists()) {
        return entries;
    }
    const QFontDatabase database;
    for (const QString& family : database.families()) {
        for (const QString& style : database.styles(family)) {
            entries.append(family + QLatin1Char(' ') + style);
        }
    }
    return entries;
}

char* VelnorImage::GetAvailableFont() {
    const QStringList entries = ListAvailableFont();
    if (entries.isEmpty()) {
        return nullptr;
    }
    const QByteArray joined = entries.join(QLatin1Char(';')).toLatin1();
    auto list = std::make_unique<char[]>(static_cast<size_t>(joined.size()) + 1);
    std::copy(joined.begin(), joined.end(), list.get());
    return list.release();
}
