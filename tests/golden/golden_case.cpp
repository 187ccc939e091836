#include "golden_case.h"

#include <QDir>
#include <QFileInfo>

namespace golden {

GoldenCase GoldenCase::ofDocument(const QString& path) {
    const QFileInfo document(path);
    const QDir subject = document.absoluteDir();
    const QString base = document.completeBaseName();
    const QString suffix =
        base.endsWith(QLatin1String(".bmp")) ? QString() : QStringLiteral(".png");
    GoldenCase found;
    found.name = subject.dirName() + QLatin1Char('.') + base;
    found.root = QDir::cleanPath(subject.filePath(QStringLiteral("../..")));
    found.document = document.absoluteFilePath();
    found.picture = subject.filePath(base + suffix);
    found.tags = subject.filePath(base + QLatin1String(".tags"));
    found.images = found.root + QLatin1String("/images");
    return found;
}

QString GoldenCase::acceptCommand() const {
    return QLatin1String("scripts/golden accept ") + name;
}

} // namespace golden
