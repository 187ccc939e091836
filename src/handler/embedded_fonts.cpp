// The font files that handlers register with the font database of the process.
#include "files/input_file.h"
#include "handler/velnorxml.h"
#include "library_limits.h"
#include "render/gui_application.h"

#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QHash>

#include <algorithm>
#include <memory>

namespace {

// Marks the record of a font file that is registered already. False when there is none.
bool markPresent(const QList<FontItem*>& fonts, const QString& name, int size) {
    const auto sameFile = [&](const FontItem* font) {
        return font->name == name && font->size == size;
    };
    const auto found = std::find_if(fonts.begin(), fonts.end(), sameFile);
    if (found == fonts.end()) {
        return false;
    }
    (*found)->present = 1;
    return true;
}

struct KeptFont {
    QByteArray bytes; // Qt has them too, and shares them
    QStringList families;
};

// Those that were registered to be kept, by their numbers.
QHash<int, KeptFont>& keptFonts() {
    static QHash<int, KeptFont> fonts;
    return fonts;
}

// A Qt host may have removed all fonts, and Qt gives their numbers to others.
bool isStillRegistered(int id, const KeptFont& font) {
    return !font.families.isEmpty() && QFontDatabase::applicationFontFamilies(id) == font.families;
}

// The number of a font of these bytes that was forgotten but is registered; -1 when there is none.
// Registered anew each time that their folder comes back, fonts would fill the memory.
int forgottenFont(const QList<FontItem*>& fonts, const QByteArray& bytes) {
    for (auto kept = keptFonts().constBegin(); kept != keptFonts().constEnd(); ++kept) {
        const auto isKnown = [&](const FontItem* font) { return font->id == kept.key(); };
        if (std::none_of(fonts.begin(), fonts.end(), isKnown) && kept->bytes == bytes &&
            isStillRegistered(kept.key(), *kept)) {
            return kept.key();
        }
    }
    return -1;
}

int registeredFont(const QList<FontItem*>& fonts, const QByteArray& bytes) {
    const int forgotten = forgottenFont(fonts, bytes);
    if (forgotten != -1) {
        return forgotten;
    }
    const int id = QFontDatabase::addApplicationFontFromData(bytes);
    if (id != -1 && VelnorXml::embeddedFontKeepFlag) {
        keptFonts().insert(id, {bytes, QFontDatabase::applicationFontFamilies(id)});
    }
    return id;
}

// From memory: Qt would map the file, and a file that is replaced or cut short later would end the
// host's process.
void registerFont(QList<FontItem*>& fonts, const QFileInfo& info, int size) {
    velnor::InputFile file(info.filePath());
    if (!file.openUpTo(velnor::MaximumFontFileSize)) {
        return;
    }
    const int id = registeredFont(fonts, file.readAll());
    if (id != -1) {
        fonts.append(std::make_unique<FontItem>(info.fileName(), id, size).release());
    }
}

// Forgets the fonts whose files are gone. They stay registered: texts of other handlers may use
// them.
void dropAbsent(QList<FontItem*>& fonts) {
    const auto absent = std::stable_partition(
        fonts.begin(), fonts.end(), [](const FontItem* font) { return font->present != 0; });
    std::for_each(absent, fonts.end(), [](const FontItem* font) { delete font; });
    fonts.erase(absent, fonts.end());
}

} // namespace

void VelnorXml::addEmbeddedFonts() {
    const QDir directory(fontDirectory.isEmpty() ? FixAbsRelFilePath(QStringLiteral("fonts"))
                                                 : fontDirectory);
    if (!velnor::guiApplicationExists() || !directory.exists()) {
        return;
    }
    QList<FontItem*>& fonts = *embeddedFontIdList;
    if (embeddedFontKeepFlag) {
        for (FontItem* font : fonts) {
            font->present = 0;
        }
    }
    for (const QFileInfo& file : directory.entryInfoList(QDir::Files)) {
        const int size = static_cast<int>(file.size());
        if (!embeddedFontKeepFlag || !markPresent(fonts, file.fileName(), size)) {
            registerFont(fonts, file, size);
        }
    }
    if (embeddedFontKeepFlag) {
        dropAbsent(fonts);
    }
    // A family that was asked for before its file was registered stays substituted otherwise.
    QFont::cleanup();
}

void VelnorXml::removeEmbeddedFonts() {
    if (embeddedFontKeepFlag || embeddedFontIdList == nullptr) {
        return;
    }
    const bool fontsCanBeRemoved = velnor::guiApplicationExists();
    while (!embeddedFontIdList->isEmpty()) {
        const std::unique_ptr<const FontItem> font(embeddedFontIdList->takeLast());
        if (font->id != -1 && fontsCanBeRemoved) {
            QFontDatabase::removeApplicationFont(font->id);
            keptFonts().remove(font->id);
        }
    }
    if (fontsCanBeRemoved) {
        QFont::cleanup();
    }
}

void VelnorXml::forgetEmbeddedFonts() {
    keptFonts().clear();
    if (embeddedFontIdList != nullptr) {
        qDeleteAll(*embeddedFontIdList);
        embeddedFontIdList->clear();
    }
}
