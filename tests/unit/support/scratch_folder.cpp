#include "support/scratch_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

ScratchFolder::ScratchFolder() {
    if (!folder.isValid()) {
        throw std::runtime_error("no temporary folder");
    }
}

QString ScratchFolder::path(const QString& name) const {
    return folder.filePath(name);
}

QByteArray ScratchFolder::utf8Path(const QString& name) const {
    return path(name).toUtf8();
}

QString ScratchFolder::write(const QString& name, const QByteArray& content) const {
    const QString file = path(name);
    QDir().mkpath(QFileInfo(file).absolutePath());
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size()) {
        throw std::runtime_error("cannot write " + file.toStdString());
    }
    return file;
}

QStringList ScratchFolder::files() const {
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}
