#include "golden_case.h"

#include <QDir>
#include <QFileInfo>

namespace golden {

namespace {

// The formats besides PNG that cases are rendered to. Their names bear the suffix.
bool namesItsFormat(const QString& base) {
    const QString suffix = QFileInfo(base).suffix();
    return suffix == QLatin1String("BMP") || suffix == QLatin1String("ppm") ||
           suffix == QLatin1String("xpm");
}

bool isDithered(const QString& base) {
    return base.endsWith(QLatin1String(".bmp"));
}

} // namespace

GoldenCase GoldenCase::ofDocument(const QString& path) {
    const QFileInfo document(path);
    const QDir subject = document.absoluteDir();
    const QString base = document.completeBaseName();
    const QLatin1String png(".png");
    GoldenCase found;
    found.name = subject.dirName() + QLatin1Char('.') + base;
    found.output = namesItsFormat(base) ? found.name : found.name + png;
    found.root = QDir::cleanPath(subject.filePath(QStringLiteral("../..")));
    found.document = document.absoluteFilePath();
    found.picture = subject.filePath(namesItsFormat(base) || isDithered(base) ? base : base + png);
    found.tags = subject.filePath(base + QLatin1String(".tags"));
    found.images = found.root + QLatin1String("/images");
    return found;
}

QString GoldenCase::acceptCommand() const {
    return QLatin1String("scripts/golden accept ") + name;
}

} // namespace golden
