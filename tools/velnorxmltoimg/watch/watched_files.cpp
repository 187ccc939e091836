#include "watch/watched_files.h"

#include "document/elements.h"
#include "engine/document_view.h"
#include "layout/layout.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

// Editors write a file anew under its name, or put another one in its place.
QString stateOf(const QFileInfo& file) {
    if (!file.exists()) {
        return {};
    }
    return QStringLiteral("%1 %2 %3")
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(file.metadataChangeTime().toMSecsSinceEpoch());
}

QString absolutePath(const QString& file) {
    return QFileInfo(file).absoluteFilePath();
}

QString fontFolderOf(const tool::LayoutOptions& options) {
    if (!options.fonts.empty()) {
        return absolutePath(QString::fromStdString(options.fonts));
    }
    const QFileInfo document(QString::fromStdString(options.document));
    return document.absoluteDir().filePath(QStringLiteral("fonts"));
}

} // namespace

tool::WatchedFiles::WatchedFiles(const LayoutOptions& options) : fontFolder(fontFolderOf(options)) {
    files.append(absolutePath(QString::fromStdString(options.document)));
    for (const std::string& paramFile : options.paramFiles) {
        files.append(absolutePath(QString::fromStdString(paramFile)));
    }
    state = currentState();
}

void tool::WatchedFiles::addPictures(const LayoutOptions& options) {
    const Layout layout(options);
    const auto canvas = DocumentView(layout.source()).canvas();
    if (!canvas || !canvas->items) {
        return;
    }
    for (const auto& item : *canvas->items) {
        if (item->type == velnor::ImageKind) {
            const auto& image = static_cast<const VelnorDrawableImage&>(*item);
            files.append(absolutePath(image.filepath));
        }
    }
    files.removeDuplicates();
    state = currentState();
}

QStringList tool::WatchedFiles::paths() const {
    QStringList found{QFileInfo(fontFolder).path()};
    for (const QString& file : currentState().keys()) {
        found.append(file);
        found.append(QFileInfo(file).path());
    }
    found.append(fontFolder);
    found.removeDuplicates();
    QStringList existing;
    for (const QString& path : found) {
        if (QFileInfo::exists(path)) {
            existing.append(path);
        }
    }
    return existing;
}

bool tool::WatchedFiles::haveChanged() {
    const State now = currentState();
    const bool changed = now != state;
    state = now;
    return changed;
}

tool::WatchedFiles::State tool::WatchedFiles::currentState() const {
    State found;
    for (const QString& file : files) {
        found[file] = stateOf(QFileInfo(file));
    }
    for (const QFileInfo& font : QDir(fontFolder).entryInfoList(QDir::Files)) {
        found[font.filePath()] = stateOf(font);
    }
    return found;
}
