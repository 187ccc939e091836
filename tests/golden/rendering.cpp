#include "rendering.h"

#include <velnorxmltoimg.h>

#include <QFile>
#include <QFileInfo>

#include <memory>
#include <stdexcept>

namespace golden {

namespace {

struct Freeing {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};
using Handler = std::unique_ptr<void, Freeing>;

constexpr char ParamFile[] = "params";

int set(void* handler, const QByteArray& name, const QByteArray& value, const QString& folder) {
    if (name == ParamFile) {
        const QString file = folder + QLatin1Char('/') + QString::fromUtf8(value);
        return xmlToImgSetDictionaryFromParamFile(handler, file.toUtf8().constData());
    }
    if (name.startsWith('@')) {
        return xmlToImgSetObjectLinkDictionary(handler, name.constData() + 1, value.constData());
    }
    // A name without a point sets a placeholder.
    return xmlToImgSetObjectTagDictionary(handler, name.constData(), value.constData());
}

void applyTags(void* handler, const GoldenCase& golden) {
    QFile file(golden.tags);
    if (!file.exists()) {
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + golden.tags.toStdString());
    }
    const QString folder = QFileInfo(golden.tags).absolutePath();
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.isEmpty() || line.startsWith('#')) {
            continue;
        }
        const int equals = line.indexOf('=');
        if (equals < 1 || set(handler, line.left(equals), line.mid(equals + 1), folder) != 0) {
            throw std::runtime_error("cannot set '" + line.toStdString() + "' of " +
                                     golden.tags.toStdString());
        }
    }
}

} // namespace

QString render(const GoldenCase& golden, const QString& folder) {
    const QString output = folder + QLatin1Char('/') + golden.output;
    QFile::remove(output); // an old picture must not pass for the new one
    const Handler handler(xmlToImgCreateHandlerWithDirs(
        golden.document.toUtf8().constData(), golden.images.toUtf8().constData(), GOLDEN_FONTS));
    if (!handler) {
        throw std::runtime_error("no handler was made");
    }
    applyTags(handler.get(), golden);
    xmlToImgCreateImage(handler.get(), output.toUtf8().constData());
    if (!QFile::exists(output)) {
        throw std::runtime_error("no picture was written");
    }
    return finish(output);
}

} // namespace golden
