// The font files that handlers register with the font database of the process.
#include "files/input_file.h"
#include "handler/font_lock.h"
#include "handler/velnorxml.h"
#include "library_limits.h"
#include "render/gui_application.h"

#include <QDir>
#include <QFontDatabase>
#include <QHash>

#include <algorithm>
#include <memory>
#include <mutex>

namespace {

using FontList = QList<FontItem*>;

// Guards the list and the registrations: handlers may be created and freed on any thread.
std::mutex listMutex;

FontList& fontList() {
    if (VelnorXml::embeddedFontIdList == nullptr) {
        VelnorXml::embeddedFontIdList = new FontList;
    }
    return *VelnorXml::embeddedFontIdList;
}

bool fontsAreKept() {
    return __atomic_load_n(&VelnorXml::embeddedFontKeepFlag, __ATOMIC_RELAXED);
}

struct Registration {
    QByteArray bytes; // shared with Qt
    QStringList families;
};

// What the library has registered and not removed, by the numbers that Qt gave.
QHash<int, Registration>& registrations() {
    static QHash<int, Registration> fonts;
    return fonts;
}

// Qt removes all fonts with its application, as a Qt host may at any time, and reuses their numbers.
bool wasRemovedByHost(int id) {
    const auto known = registrations().constFind(id);
    return known != registrations().constEnd() &&
           QFontDatabase::applicationFontFamilies(id) != known->families;
}

// Marks the record of a font file that is registered already. False when there is none.
bool markPresent(const FontList& fonts, const QString& name, int size) {
    const auto isSameFile = [&](const FontItem* font) {
        return font->name == name && font->size == size && !wasRemovedByHost(font->id);
    };
    const auto found = std::find_if(fonts.begin(), fonts.end(), isSameFile);
    if (found == fonts.end()) {
        return false;
    }
    (*found)->present = 1;
    return true;
}

// One copy serves all registrations of the same bytes.
QByteArray sharedCopy(const QByteArray& bytes) {
    for (const Registration& font : registrations()) {
        if (font.bytes == bytes) {
            return font.bytes;
        }
    }
    return bytes;
}

bool isRecorded(const FontList& fonts, int id) {
    return std::any_of(fonts.begin(), fonts.end(),
                       [id](const FontItem* font) { return font->id == id; });
}

// Registrations of this copy without a record: their file was gone under the keep flag.
QList<int> forgottenFonts(const FontList& fonts, const QByteArray& copy) {
    QList<int> forgotten;
    for (auto one = registrations().constBegin(); one != registrations().constEnd(); ++one) {
        if (one->bytes.constData() == copy.constData() && !isRecorded(fonts, one.key()) &&
            !wasRemovedByHost(one.key())) {
            forgotten.append(one.key());
        }
    }
    return forgotten;
}

// A forgotten font stays registered, whatever becomes of the new record of the same file. A second
// one that was forgotten serves the new record: folders in turn would fill the memory otherwise.
int registeredFont(const FontList& fonts, const QByteArray& bytes) {
    const QByteArray copy = sharedCopy(bytes);
    const QList<int> forgotten = forgottenFonts(fonts, copy);
    if (forgotten.size() > 1) {
        return forgotten.first();
    }
    const int id = QFontDatabase::addApplicationFontFromData(copy);
    if (id != -1) {
        registrations().insert(id, {copy, QFontDatabase::applicationFontFamilies(id)});
    }
    return id;
}

// From memory: Qt would map the file, and a file that is replaced or cut short later would end the
// host's process.
void registerFont(FontList& fonts, const QFileInfo& info) {
    velnor::InputFile file(info.filePath());
    if (!file.openUpTo(velnor::MaximumFontFileSize)) {
        return;
    }
    const int id = registeredFont(fonts, file.readAll());
    if (id != -1) {
        const int size = static_cast<int>(info.size());
        fonts.append(std::make_unique<FontItem>(info.fileName(), id, size).release());
    }
}

void registerFonts(FontList& fonts, const QFileInfoList& files) {
    if (files.isEmpty()) {
        return;
    }
    const velnor::FontWriteLock lock;
    for (const QFileInfo& file : files) {
        registerFont(fonts, file);
    }
}

// Marks the records of the files that are registered and gives the other files.
QFileInfoList filesWithoutRecord(const FontList& fonts, const QFileInfoList& files) {
    for (FontItem* font : fonts) {
        font->present = 0;
    }
    QFileInfoList others;
    for (const QFileInfo& file : files) {
        if (!markPresent(fonts, file.fileName(), static_cast<int>(file.size()))) {
            others.append(file);
        }
    }
    return others;
}

// Forgets the fonts whose files are gone. They stay registered: texts of other handlers may use
// them.
void dropAbsent(FontList& fonts) {
    const auto absent = std::stable_partition(
        fonts.begin(), fonts.end(), [](const FontItem* font) { return font->present != 0; });
    std::for_each(absent, fonts.end(), [](const FontItem* font) { delete font; });
    fonts.erase(absent, fonts.end());
}

void clearList(FontList& fonts) {
    qDeleteAll(fonts);
    fonts.clear();
}

} // namespace

void VelnorXml::addEmbeddedFonts() {
    const std::lock_guard<std::mutex> guard(listMutex);
    FontList& fonts = fontList();
    const QDir directory(fontDirectory.isEmpty() ? FixAbsRelFilePath(QStringLiteral("fonts"))
                                                 : fontDirectory);
    if (!velnor::guiApplicationExists() || !directory.exists()) {
        return;
    }
    const QFileInfoList files = directory.entryInfoList(QDir::Files);
    if (!fontsAreKept()) {
        registerFonts(fonts, files);
        return;
    }
    registerFonts(fonts, filesWithoutRecord(fonts, files));
    dropAbsent(fonts);
}

void VelnorXml::removeEmbeddedFonts() {
    const std::lock_guard<std::mutex> guard(listMutex);
    if (fontsAreKept() || embeddedFontIdList == nullptr || embeddedFontIdList->isEmpty()) {
        return;
    }
    const velnor::FontWriteLock lock;
    for (const FontItem* font : *embeddedFontIdList) {
        if (font->id != -1 && velnor::guiApplicationExists()) {
            QFontDatabase::removeApplicationFont(font->id);
            registrations().remove(font->id);
        }
    }
    clearList(*embeddedFontIdList);
}

void VelnorXml::forgetEmbeddedFonts() {
    const std::lock_guard<std::mutex> guard(listMutex);
    const velnor::FontWriteLock lock;
    registrations().clear();
    if (embeddedFontIdList != nullptr) {
        clearList(*embeddedFontIdList);
    }
}
