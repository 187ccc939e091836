#include "runs.h"

#include "comparison.h"
#include "rendering.h"

#include <QFile>
#include <QImage>

#include <stdexcept>

namespace golden {

namespace {

// Empty where the committed picture is what was rendered.
QString compareWithCommitted(const GoldenCase& golden, const QString& actual) {
    const QImage expected(golden.picture);
    if (expected.isNull()) {
        return QStringLiteral("there is no picture %1").arg(golden.picture);
    }
    return describeDifferences(expected, QImage(actual));
}

Outcome fail(const GoldenCase& golden, const QString& message, const QString& actual,
             const Surroundings& surroundings, QTextStream& out) {
    const Failure failure = surroundings.records.add(golden, message, actual);
    out << golden.name << ": " << message << "\n";
    if (!actual.isEmpty()) {
        out << "  side by side: " << failure.comparison << "\n";
        out << "  to accept:    " << failure.command << "\n";
    }
    return Failed;
}

void replace(const QString& picture, const QString& actual) {
    QFile::remove(picture);
    if (!QFile::copy(actual, picture)) {
        throw std::runtime_error("cannot write " + picture.toStdString());
    }
}

} // namespace

Outcome runCase(const GoldenCase& golden, const Surroundings& surroundings, QTextStream& out) {
    surroundings.records.remove(golden);
    const QString reason = reasonToSkip(golden, surroundings.versions);
    if (!reason.isEmpty()) {
        out << "SKIPPED " << golden.name << ": " << reason << "\n";
        return Skipped;
    }
    try {
        const QString actual = render(golden, surroundings.scratch);
        const QString message = compareWithCommitted(golden, actual);
        return message.isEmpty() ? Passed : fail(golden, message, actual, surroundings, out);
    } catch (const std::exception& error) {
        return fail(golden, QString::fromUtf8(error.what()), QString(), surroundings, out);
    }
}

Outcome acceptCase(const GoldenCase& golden, const Surroundings& surroundings, QTextStream& out) {
    try {
        const QString actual = render(golden, surroundings.scratch);
        const QString message = compareWithCommitted(golden, actual);
        surroundings.records.remove(golden);
        if (message.isEmpty()) {
            return Passed;
        }
        replace(golden.picture, actual);
        out << "accepted " << golden.name << ": " << message << "\n";
    } catch (const std::exception& error) {
        out << "cannot accept " << golden.name << ": " << error.what() << "\n";
    }
    return Failed;
}

} // namespace golden
