// What the font database of the process tells about a family.
#include "handler/velnorxml.h"
#include "render/gui_application.h"

#include <QFont>
#include <QFontDatabase>

#include <algorithm>

namespace {

template <typename Test>
bool anyStyle(const QFontDatabase* database, const QString& family, Test test) {
    if (database == nullptr) {
        return false;
    }
    const QStringList styles = database->styles(family);
    return std::any_of(styles.begin(), styles.end(), test);
}

} // namespace

bool VelnorXml::fontFamilyIsAvailable(const QFontDatabase* database, const QString& family) {
    return anyStyle(database, family, [](const QString&) { return true; });
}

bool VelnorXml::fontFamilyIsBold(const QFontDatabase* database, const QString& family) {
    return anyStyle(database, family,
                    [&](const QString& style) { return database->bold(family, style); });
}

bool VelnorXml::fontFamilyIsItalic(const QFontDatabase* database, const QString& family) {
    return anyStyle(database, family,
                    [&](const QString& style) { return database->italic(family, style); });
}

int VelnorXml::GetFontProperty(const QString& family, int* bold, int* italic) {
    if (bold == nullptr || italic == nullptr) {
        return -1;
    }
    *bold = 0;
    *italic = 0;
    if (!velnor::guiApplicationExists()) {
        return -1;
    }
    const QFontDatabase database;
    const QFont font(family);
    if (!font.exactMatch() && !fontFamilyIsAvailable(&database, family)) {
        return -1;
    }
    *bold = fontFamilyIsBold(&database, font.family()) ? 1 : 0;
    *italic = fontFamilyIsItalic(&database, font.family()) ? 1 : 0;
    return 0;
}
