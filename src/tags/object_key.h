// Keys of the object tag dictionary: "object.property".
#ifndef VELNOR_TAGS_OBJECT_KEY_H
#define VELNOR_TAGS_OBJECT_KEY_H

#include <QString>
#include <QStringList>

namespace velnor {

// The parts between the points, empty ones included; an object key has two.
inline QStringList splitObjectKey(const QString& key) {
    return key.split(QLatin1Char('.'), Qt::KeepEmptyParts, Qt::CaseSensitive);
}

// Whether the key names an object and something of it.
inline bool namesValue(const QString& key) {
    const QStringList parts = splitObjectKey(key);
    return parts.size() == 2 && !parts[0].isEmpty() && !parts[1].isEmpty();
}

} // namespace velnor

#endif
