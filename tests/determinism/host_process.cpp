#include "host_process.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <stdexcept>

namespace {

constexpr int TimeLimit = 600 * 1000;

} // namespace

HostProcess::HostProcess() : environment(QProcessEnvironment::systemEnvironment()) {
    for (const char* name : {"LANGUAGE", "LOCPATH", "TZ"}) {
        environment.remove(QLatin1String(name));
    }
    setVariable("LC_ALL", QStringLiteral("C"));
    setVariable("LANG", QStringLiteral("C"));
    for (const char* name : {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString path = folder.path(QLatin1String(name));
        QDir().mkpath(path);
        setVariable(name, path);
    }
}

void HostProcess::setVariable(const char* name, const QString& value) {
    environment.insert(QLatin1String(name), value);
}

std::vector<QByteArray> HostProcess::draw(const std::vector<Case>& cases) {
    run({writeOrder(cases, 0)});
    return takeFiles(cases, 0);
}

std::vector<std::vector<QByteArray>>
HostProcess::drawAtTheSameTime(const std::vector<std::vector<Case>>& lists) {
    QStringList orders;
    for (const auto& list : lists) {
        orders.append(writeOrder(list, orders.size()));
    }
    run(orders);
    std::vector<std::vector<QByteArray>> files;
    for (const auto& list : lists) {
        files.push_back(takeFiles(list, static_cast<int>(files.size())));
    }
    return files;
}

QString HostProcess::outputPath(const Case& drawn, int thread, int place) const {
    return folder.path(QString::number(thread) + QLatin1Char('-') + QString::number(place) +
                       QLatin1Char('.') + QFileInfo(drawn.name).suffix());
}

QString HostProcess::writeOrder(const std::vector<Case>& cases, int thread) const {
    QStringList lines;
    for (const Case& drawn : cases) {
        const QStringList fields = {outputPath(drawn, thread, lines.size()), drawn.layout,
                                    drawn.images, drawn.fonts, drawn.values};
        lines.append(fields.join(QLatin1Char('\t')));
    }
    return folder.write(QLatin1String("order-") + QString::number(thread),
                        lines.join(QLatin1Char('\n')).toUtf8());
}

void HostProcess::run(const QStringList& orders) {
    QProcess host;
    host.setProcessEnvironment(environment);
    host.start(QStringLiteral(VELNOR_DETERMINISM_HOST), orders);
    const bool ended = host.waitForFinished(TimeLimit);
    if (!ended || host.exitStatus() != QProcess::NormalExit || host.exitCode() != 0) {
        throw std::runtime_error("the host failed: " + host.readAllStandardError().toStdString());
    }
    usedLocale = host.readAllStandardOutput();
}

std::vector<QByteArray> HostProcess::takeFiles(const std::vector<Case>& cases, int thread) const {
    std::vector<QByteArray> files;
    for (const Case& drawn : cases) {
        QFile file(outputPath(drawn, thread, static_cast<int>(files.size())));
        if (!file.open(QIODevice::ReadOnly)) {
            throw std::runtime_error("no picture of " + drawn.name.toStdString());
        }
        files.push_back(file.readAll());
        file.remove();
    }
    return files;
}
