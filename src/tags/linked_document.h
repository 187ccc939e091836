// The document in which links are resolved while many of them are set.
#ifndef VELNOR_TAGS_LINKED_DOCUMENT_H
#define VELNOR_TAGS_LINKED_DOCUMENT_H

#include "tags/object_index.h"

#include <QDomDocument>
#include <QString>

#include <ctime>
#include <memory>
#include <optional>

namespace velnor {

// Differs as soon as the file is replaced or written. All files that the system does not know, such
// as Qt's resources, are alike.
class FileVersion {
public:
    explicit FileVersion(const QString& path);

    bool operator==(const FileVersion& other) const;

private:
    quint64 device = 0;
    quint64 number = 0;
    qint64 size = -1;
    timespec written{};
    timespec changed{};
};

struct LinkedDocument {
    QDomDocument tree{QStringLiteral("tmpdocument")};
    std::unique_ptr<ObjectIndex> index; // null where the document does not load
    // Of the file when it was read; none where the tree may be of an older one.
    std::optional<FileVersion> version;
};

} // namespace velnor

#endif
