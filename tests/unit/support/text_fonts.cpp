#include "support/text_fonts.h"

#include <QDir>
#include <QFontDatabase>

#include <stdexcept>

namespace {

bool registerAll() {
    const QDir folder(QStringLiteral(VELNOR_TEST_FONTS));
    const QStringList files = folder.entryList({QStringLiteral("*.ttf")}, QDir::Files);
    for (const QString& file : files) {
        if (QFontDatabase::addApplicationFont(folder.filePath(file)) == -1) {
            throw std::runtime_error("cannot register " + file.toStdString());
        }
    }
    return true;
}

} // namespace

void registerTextFonts() {
    static const bool registered = registerAll();
    static_cast<void>(registered);
}

QString textFamily() {
    return QStringLiteral("Liberation Sans");
}
