// golden [--results=FOLDER] COMMAND, where COMMAND is one of
//
//   run CASE.xml...      renders cases and compares them with the pictures beside them
//   accept CASE.xml...   makes those pictures what is rendered now
//   report               writes failures.html from what failed cases left behind
//   versions             prints the versions of the libraries that pictures depend on
//
// golden_bmp does the same for the cases whose pictures are BMP files; each program passes over the
// cases of the other. FOLDER keeps what failed; without it the build folder does.
#include "isolation.h"
#include "rendering.h"
#include "report.h"
#include "runs.h"

#include <QStringList>

#include <exception>

using namespace golden;

namespace {

using Action = Outcome (*)(const GoldenCase&, const Surroundings&, QTextStream&);

// The worst outcome of all: a failure counts more than a case that was skipped.
Outcome applyToAll(Action action, const QStringList& documents, const QString& results,
                   QTextStream& out) {
    const Isolation isolation;
    startLibrary();
    const Surroundings surroundings{FailureRecords(results), loadedVersions(),
                                    isolation.path(QStringLiteral("."))};
    Outcome worst = Passed;
    for (const QString& document : documents) {
        const GoldenCase golden = GoldenCase::ofDocument(document);
        const Outcome outcome = isMine(golden) ? action(golden, surroundings, out) : Passed;
        worst = worst == Failed || outcome == Passed ? worst : outcome;
    }
    return worst;
}

Outcome report(const QString& results, QTextStream& out) {
    const QString page = results + QLatin1String("/failures.html");
    const QList<Failure> failures = FailureRecords(results).all();
    writeReport(failures, page);
    out << "failures: " << failures.size() << ", shown in " << page << "\n";
    return Passed;
}

QString takeResultsFolder(QStringList& arguments) {
    const QLatin1String option("--results=");
    if (arguments.value(0).startsWith(option)) {
        return arguments.takeFirst().mid(option.size());
    }
    return QStringLiteral(GOLDEN_RESULTS);
}

Outcome dispatch(QStringList arguments, QTextStream& out) {
    const QString results = takeResultsFolder(arguments);
    const QString command = arguments.value(0);
    const QStringList documents = arguments.mid(1);
    if (command == QLatin1String("run") && !documents.isEmpty()) {
        return applyToAll(runCase, documents, results, out);
    }
    if (command == QLatin1String("accept") && !documents.isEmpty()) {
        return applyToAll(acceptCase, documents, results, out);
    }
    if (command == QLatin1String("report") && documents.isEmpty()) {
        return report(results, out);
    }
    if (command == QLatin1String("versions") && documents.isEmpty()) {
        out << asText(loadedVersions());
        return Passed;
    }
    out << "usage: golden [--results=FOLDER] run CASE.xml... | accept CASE.xml... | report | "
           "versions\n";
    return WrongUsage;
}

} // namespace

int main(int argc, char** argv) {
    QTextStream out(stdout);
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    try {
        return dispatch(arguments, out);
    } catch (const std::exception& error) {
        out << "golden: " << error.what() << "\n";
        return Failed;
    }
}
