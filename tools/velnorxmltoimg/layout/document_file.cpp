#include "layout/document_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

using tool::ExitCode;
using tool::Failure;

[[noreturn]] void refuse(const std::string& file, const std::string& reason) {
    throw Failure(ExitCode::UnreadableDocument, "cannot read '" + file + "': " + reason);
}

std::string keepStandardInput(const QTemporaryDir& folder) {
    const QString name = folder.filePath(QStringLiteral("standard_input.xml"));
    QFile input;
    QFile copy(name);
    if (!folder.isValid() || !copy.open(QIODevice::WriteOnly)) {
        throw Failure(ExitCode::NotWritten,
                      "standard input cannot be kept: " + copy.errorString().toStdString());
    }
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        refuse("-", input.errorString().toStdString());
    }
    const QByteArray bytes = input.readAll();
    if (copy.write(bytes) != bytes.size() || !copy.flush()) {
        throw Failure(ExitCode::NotWritten,
                      "standard input cannot be kept: " + copy.errorString().toStdString());
    }
    return name.toStdString();
}

} // namespace

// The library takes a bare name for no folder at all.
std::string tool::folderGiven(const std::string& folder) {
    if (folder.empty()) {
        return {};
    }
    const QFileInfo info(QString::fromStdString(folder));
    if (!info.isDir()) {
        throw Failure(ExitCode::Usage, "'" + folder + "' is no folder");
    }
    return info.absoluteFilePath().toStdString();
}

void tool::requireReadable(const std::string& file) {
    const QString name = QString::fromStdString(file);
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        refuse(file, info.isDir() ? "it is a folder" : "it is no regular file");
    }
    QFile device(name);
    if (!device.open(QIODevice::ReadOnly)) {
        refuse(file, device.errorString().toStdString());
    }
}

tool::DocumentFile::DocumentFile(const std::string& document) : documentPath(document) {
    if (document == "-") {
        inputFolder = std::make_unique<QTemporaryDir>();
        documentPath = keepStandardInput(*inputFolder);
    }
    requireReadable(documentPath);
}

std::string tool::DocumentFile::images(const LayoutOptions& options) const {
    if (!options.images.empty()) {
        return folderGiven(options.images);
    }
    return inputFolder ? QDir::currentPath().toStdString() : std::string();
}

std::string tool::DocumentFile::fonts(const LayoutOptions& options) const {
    if (!options.fonts.empty()) {
        return folderGiven(options.fonts);
    }
    return inputFolder ? QDir::current().filePath(QStringLiteral("fonts")).toStdString()
                       : std::string();
}
