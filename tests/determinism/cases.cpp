#include "cases.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <stdexcept>

namespace {

// A case "name.bmp.xml" makes name.bmp, any other a PNG file.
QString pictureName(const QDir& root, const QString& layout) {
    QString name = root.relativeFilePath(layout);
    name.chop(4);
    return name.endsWith(QLatin1String(".bmp")) ? name : name + QLatin1String(".png");
}

QString valuesOf(QString layout, const QString& suffix) {
    layout.chop(4);
    layout += suffix;
    return QFile::exists(layout) ? layout : QString();
}

void addExamples(std::vector<Case>& cases) {
    const QDir root(QStringLiteral(VELNOR_EXAMPLE_LAYOUTS));
    for (const QString& file : root.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
        const QString layout = root.filePath(file);
        cases.push_back({QLatin1String("examples/") + pictureName(root, layout), layout, QString(),
                         QString(), valuesOf(layout, QStringLiteral(".values"))});
    }
    if (cases.empty()) {
        throw std::runtime_error("no example layouts");
    }
}

void addGoldenCases(std::vector<Case>& cases) {
    const QDir root(QStringLiteral(VELNOR_GOLDEN_CASES));
    QDirIterator files(root.path(), {QStringLiteral("*.xml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString layout = files.next();
        if (layout.endsWith(QLatin1String(".params.xml"))) {
            continue; // a parameter file
        }
        cases.push_back({pictureName(root, layout), layout, QStringLiteral(VELNOR_GOLDEN_IMAGES),
                         QStringLiteral(VELNOR_TEST_FONTS),
                         valuesOf(layout, QStringLiteral(".tags"))});
    }
}

std::vector<Case> findCases() {
    std::vector<Case> cases;
    addExamples(cases);
    addGoldenCases(cases);
    std::sort(cases.begin(), cases.end(),
              [](const Case& left, const Case& right) { return left.name < right.name; });
    return cases;
}

} // namespace

const std::vector<Case>& allCases() {
    static const std::vector<Case> cases = findCases();
    return cases;
}
