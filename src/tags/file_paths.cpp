// Picture and font file names as written become paths. Purely textual: nothing is looked up.
#include "handler/velnorxml.h"

namespace {

const QLatin1Char Slash('/');
const QLatin1Char Backslash('\\');

bool isAbsolute(const QString& path) {
    return path.contains(QLatin1String(":\\")) || path.contains(QLatin1String(":/")) ||
           path.startsWith(Backslash) || path.startsWith(Slash);
}

bool hasSeparator(const QString& path) {
    return path.contains(Slash) || path.contains(Backslash);
}

// The separator of a directory text that has one; a text with both kinds counts as "/".
QLatin1Char separatorOf(const QString& directory) {
    return directory.contains(Slash) ? Slash : Backslash;
}

QString withSeparator(QString path, QLatin1Char separator) {
    return path.replace(separator == Slash ? Backslash : Slash, separator);
}

} // namespace

QString VelnorXml::FixAbsRelFilePath(const QString& path) const {
    if (!hasSeparator(documentPath)) {
        return path;
    }
    if (isAbsolute(path)) {
        return path;
    }
    const QLatin1Char separator = separatorOf(documentPath);
    const QString directory = documentPath.left(documentPath.lastIndexOf(separator));
    return directory + separator + withSeparator(path, separator);
}

QString VelnorXml::GetImageFilePath(const QString& path) const {
    if (imageDirectory.isEmpty() || isAbsolute(path) || !hasSeparator(imageDirectory)) {
        return FixAbsRelFilePath(path);
    }
    const QLatin1Char separator = separatorOf(imageDirectory);
    const QString rewritten = withSeparator(path, separator);
    return imageDirectory + separator + rewritten.mid(rewritten.lastIndexOf(separator) + 1);
}
