#include "output/picture_output.h"

#include "command_options.h"
#include "engine/document_view.h"
#include "failure.h"
#include "layout/layout.h"
#include "output/fresh_folder.h"
#include "output/mono_picture.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>

namespace {

using tool::ExitCode;
using tool::Failure;

const QString StandardOutput = QStringLiteral("-");
const QString StandardFormat = QStringLiteral("png");

[[noreturn]] void failToWrite(const QString& picture, const QString& reason) {
    throw Failure(ExitCode::NotWritten,
                  "cannot write '" + picture.toStdString() + "': " + reason.toStdString());
}

QString errorText() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Something that a whole picture cannot take the place of.
bool isStream(const QString& picture) {
    const QFileInfo info(picture);
    return picture == StandardOutput || (info.exists() && !info.isFile() && !info.isDir());
}

// The library chooses the format by the suffix. A picture that is converted afterwards must come
// without loss.
QString suffixOf(const QString& picture) {
    return picture == StandardOutput ? StandardFormat : QFileInfo(picture).suffix();
}

void convert(const QString& drawn, const QString& converted, tool::Mono mono) {
    QImageWriter writer(converted);
    if (!writer.write(tool::monoPicture(QImage(drawn), mono))) {
        failToWrite(converted, writer.errorString());
    }
}

bool isReadablePicture(const QString& file) {
    return QFileInfo::exists(file) && !QImageReader(file).read().isNull();
}

// The name of a readable picture in the folder. Messages name the picture that the user wants.
QString renderInto(const tool::FreshFolder& folder, const tool::Layout& layout,
                   const QString& wanted, tool::Mono mono) {
    QString finished = folder.filePath(QStringLiteral("picture.") + suffixOf(wanted));
    const QString drawn =
        mono == tool::Mono::No ? finished : folder.filePath(QStringLiteral("drawn.png"));
    layout.createImage(drawn.toStdString());
    if (!QFileInfo::exists(drawn)) {
        tool::requireDocument(layout.source());
        failToWrite(
            wanted,
            QStringLiteral(
                "no picture arose: its size is 0 or beyond the limits, or the disk is full"));
    }
    if (mono != tool::Mono::No) {
        convert(drawn, finished, mono);
    }
    if (!isReadablePicture(finished)) {
        failToWrite(wanted, QStringLiteral("what was written is no readable picture"));
    }
    return finished;
}

QByteArray renderedBytes(const tool::Layout& layout, tool::Mono mono) {
    const tool::FreshFolder folder;
    QFile picture(renderInto(folder, layout, StandardOutput, mono));
    if (!picture.open(QIODevice::ReadOnly)) {
        failToWrite(picture.fileName(), picture.errorString());
    }
    return picture.readAll();
}

// Whoever reads the stream may take its time.
void writeInto(const QString& stream, const QByteArray& bytes) {
    QFile target(stream);
    const bool opened = stream == StandardOutput ? target.open(stdout, QIODevice::WriteOnly)
                                                 : target.open(QIODevice::WriteOnly);
    if (!opened || target.write(bytes) != bytes.size() || !target.flush()) {
        failToWrite(stream, target.errorString());
    }
}

void replace(const QString& target, const QString& picture) {
    if (std::rename(QFile::encodeName(picture).constData(),
                    QFile::encodeName(target).constData()) != 0) {
        failToWrite(target, errorText());
    }
}

// A link stays one: what it points to is replaced.
QString targetOf(const QString& picture) {
    const QString existing = QFileInfo(picture).canonicalFilePath();
    return existing.isEmpty() ? picture : existing;
}

QString folderOf(const QString& target) {
    const QFileInfo folder(QFileInfo(target).path());
    if (!folder.isDir()) {
        failToWrite(target, QStringLiteral("there is no folder '%1'").arg(folder.filePath()));
    }
    return folder.filePath();
}

} // namespace

void tool::addOutputOptions(CommandOptions& command, OutputOptions& options,
                            const std::string& what) {
    static const std::map<std::string, Mono> Modes{
        {"threshold", Mono::Threshold}, {"ordered", Mono::Ordered}, {"diffuse", Mono::Diffuse}};
    command.value("-o,--output", options.picture, "OUT", what, Presence::Required);
    command.choice(
        "--mono", {"threshold", "ordered", "diffuse"},
        [&options](const std::string& word) { options.mono = Modes.at(word); },
        "Write black and white, one bit a dot");
}

void tool::requirePictureFormat(const std::string& picture) {
    const QString name = QString::fromStdString(picture);
    const QByteArray suffix = suffixOf(name).toLower().toLatin1();
    if (!isStream(name) && !QImageWriter::supportedImageFormats().contains(suffix)) {
        throw Failure(ExitCode::Usage,
                      "'" + picture + "': the suffix names no format of pictures, such as .png");
    }
}

void tool::writePicture(const Layout& layout, const OutputOptions& options) {
    const QString picture = QString::fromStdString(options.picture);
    if (isStream(picture)) {
        writeInto(picture, renderedBytes(layout, options.mono));
        return;
    }
    const QString target = targetOf(picture);
    if (QFileInfo(target).isDir()) {
        failToWrite(target, QStringLiteral("it is a folder"));
    }
    const FreshFolder folder(folderOf(target));
    replace(target, renderInto(folder, layout, target, options.mono));
}
