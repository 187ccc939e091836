/*
 * What a Qt programmer would write without the library: bare_qt PLAN OUTPUT FONTS paints the plan in
 * one pass with the font files of the folder and saves the picture.
 *
 * Exit status: 0 the picture was written, 1 it was not, 2 the arguments are wrong.
 */
#include "plan.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>

#include <cstdio>

namespace {

void addFonts(const QString& folder) {
    const QDir fonts(folder);
    for (const QString& file : fonts.entryList({QStringLiteral("*.ttf")}, QDir::Files)) {
        QFontDatabase::addApplicationFont(fonts.filePath(file));
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: bare_qt PLAN OUTPUT FONTS\n", stderr);
        return 2;
    }
    addFonts(arguments[3]);
    bench::Plan plan;
    if (!bench::readPlan(arguments[1], plan)) {
        std::fputs("bare_qt: there is no such plan\n", stderr);
        return 1;
    }
    return bench::paintPlan(plan).save(arguments[2]) ? 0 : 1;
}
