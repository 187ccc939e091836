#include "versions.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <dlfcn.h>
#include <stdexcept>

namespace golden {

namespace {

template <typename Function>
Function* loadedFunction(const char* library, const char* name) {
    // No new copy: the process has the library already, as a dependency of what is tested.
    void* const handle = dlopen(library, RTLD_LAZY | RTLD_LOCAL);
    void* const found = dlsym(handle != nullptr ? handle : RTLD_DEFAULT, name);
    if (found == nullptr) {
        throw std::runtime_error(std::string("not loaded: ") + name);
    }
    return reinterpret_cast<Function*>(found);
}

QString dotted(int major, int minor, int patch) {
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch);
}

QString zintVersion() {
    const int version = loadedFunction<int()>(nullptr, "ZBarcode_Version")();
    return dotted(version / 10000, version / 100 % 100, version % 100);
}

QString freeTypeVersion() {
    constexpr char Library[] = "libfreetype.so.6";
    void* library = nullptr;
    if (loadedFunction<int(void**)>(Library, "FT_Init_FreeType")(&library) != 0) {
        throw std::runtime_error("FreeType does not start");
    }
    int major = 0;
    int minor = 0;
    int patch = 0;
    loadedFunction<void(void*, int*, int*, int*)>(Library, "FT_Library_Version")(library, &major,
                                                                                 &minor, &patch);
    loadedFunction<int(void*)>(Library, "FT_Done_FreeType")(library);
    return dotted(major, minor, patch);
}

// Without comments and empty lines.
QStringList readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    QStringList kept;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) {
            kept << line;
        }
    }
    return kept;
}

QString word(const QString& line, int index) {
    return line.section(QLatin1Char(' '), index, index);
}

Versions recordedVersions(const QString& root) {
    Versions versions;
    for (const QString& line : readLines(root + QLatin1String("/versions.txt"))) {
        versions.insert(word(line, 0), word(line, 1));
    }
    return versions;
}

// The line of version_dependent.txt that names the case, or nothing.
QString dependenceOf(const GoldenCase& golden) {
    const QString list = golden.root + QLatin1String("/version_dependent.txt");
    for (const QString& line : readLines(list)) {
        const QString pattern = QRegularExpression::wildcardToRegularExpression(word(line, 0));
        if (QRegularExpression(pattern).match(golden.name).hasMatch()) {
            return line;
        }
    }
    return {};
}

} // namespace

Versions loadedVersions() {
    return {{QStringLiteral("Qt"), QString::fromLatin1(qVersion())},
            {QStringLiteral("zint"), zintVersion()},
            {QStringLiteral("FreeType"), freeTypeVersion()}};
}

QString asText(const Versions& versions) {
    QString text;
    for (auto entry = versions.begin(); entry != versions.end(); ++entry) {
        text += entry.key() + QLatin1Char(' ') + entry.value() + QLatin1Char('\n');
    }
    return text;
}

QString reasonToSkip(const GoldenCase& golden, const Versions& loaded) {
    const QString dependence = dependenceOf(golden);
    const QStringList libraries = word(dependence, 1).split(QLatin1Char(','));
    const Versions recorded = recordedVersions(golden.root);
    QStringList changes;
    for (auto entry = recorded.begin(); entry != recorded.end(); ++entry) {
        if (libraries.contains(entry.key()) && loaded.value(entry.key()) != entry.value()) {
            changes << QStringLiteral("%1 %2 in the place of %3")
                           .arg(entry.key(), loaded.value(entry.key()), entry.value());
        }
    }
    if (changes.isEmpty()) {
        return {};
    }
    return QStringLiteral("%1; with %2")
        .arg(dependence.section(QLatin1Char(' '), 2), changes.join(QLatin1String(", ")));
}

} // namespace golden
