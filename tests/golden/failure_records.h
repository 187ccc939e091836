// What failed cases leave in the results folder, for a person and for the report: a picture
// <name>.comparison.png, its parts, and a text.
#ifndef VELNOR_GOLDEN_FAILURE_RECORDS_H
#define VELNOR_GOLDEN_FAILURE_RECORDS_H

#include "golden_case.h"

#include <QList>
#include <QString>

namespace golden {

struct Failure {
    QString name;
    QString message;
    QString command;
    // Paths; the files are missing where the picture is.
    QString expected;
    QString difference;
    QString actual;
    QString comparison;
};

class FailureRecords {
public:
    explicit FailureRecords(const QString& resultsFolder);

    // `actual` is a picture file, or empty where none was made.
    Failure add(const GoldenCase& golden, const QString& message, const QString& actual) const;
    void remove(const GoldenCase& golden) const;
    // In the order of their names; without cases whose document is gone.
    QList<Failure> all() const;

private:
    Failure named(const QString& name) const;

    QString folder;
};

} // namespace golden

#endif
