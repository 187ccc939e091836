#include "failure_records.h"

#include "side_by_side.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace golden {

namespace {

const QLatin1String RecordSuffix(".json");

void save(const QImage& picture, const QString& path) {
    if (!picture.isNull() && !picture.save(path, "PNG")) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

void writeRecord(const QString& path, const QJsonObject& record) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(record).toJson()) == -1) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

QJsonObject readRecord(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace

FailureRecords::FailureRecords(const QString& resultsFolder)
    : folder(resultsFolder + QLatin1String("/failures")) {
    if (!QDir().mkpath(folder)) {
        throw std::runtime_error("cannot make " + folder.toStdString());
    }
}

Failure FailureRecords::named(const QString& name) const {
    const QString base = folder + QLatin1Char('/') + name;
    Failure failure;
    failure.name = name;
    failure.expected = base + QLatin1String(".expected.png");
    failure.difference = base + QLatin1String(".difference.png");
    failure.actual = base + QLatin1String(".actual.png");
    failure.comparison = base + QLatin1String(".comparison.png");
    return failure;
}

Failure FailureRecords::add(const GoldenCase& golden, const QString& message,
                            const QString& actual) const {
    remove(golden);
    Failure failure = named(golden.name);
    failure.message = message;
    failure.command = golden.acceptCommand();
    const QImage left(golden.picture);
    const QImage right = actual.isEmpty() ? QImage() : QImage(actual);
    const QImage mask = left.isNull() || right.isNull() ? QImage() : differenceMask(left, right);
    save(left, failure.expected);
    save(mask, failure.difference);
    save(right, failure.actual);
    save(sideBySide(left, mask, right), failure.comparison);
    writeRecord(folder + QLatin1Char('/') + golden.name + RecordSuffix,
                {{QStringLiteral("document"), golden.document},
                 {QStringLiteral("message"), failure.message},
                 {QStringLiteral("command"), failure.command}});
    return failure;
}

void FailureRecords::remove(const GoldenCase& golden) const {
    const Failure failure = named(golden.name);
    for (const QString& path :
         {failure.expected, failure.difference, failure.actual, failure.comparison,
          QString(folder + QLatin1Char('/') + golden.name + RecordSuffix)}) {
        QFile::remove(path);
    }
}

QList<Failure> FailureRecords::all() const {
    QList<Failure> failures;
    const QStringList records =
        QDir(folder).entryList({QLatin1Char('*') + RecordSuffix}, QDir::Files, QDir::Name);
    for (const QString& record : records) {
        const QJsonObject stored = readRecord(folder + QLatin1Char('/') + record);
        if (!QFile::exists(stored.value(QLatin1String("document")).toString())) {
            continue;
        }
        Failure failure = named(record.chopped(RecordSuffix.size()));
        failure.message = stored.value(QLatin1String("message")).toString();
        failure.command = stored.value(QLatin1String("command")).toString();
        failures << failure;
    }
    return failures;
}

} // namespace golden
