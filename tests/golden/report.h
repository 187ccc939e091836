// One page of all failures, in one file: it opens from disk and needs nothing else.
#ifndef VELNOR_GOLDEN_REPORT_H
#define VELNOR_GOLDEN_REPORT_H

#include "failure_records.h"

#include <QList>
#include <QString>

namespace golden {

void writeReport(const QList<Failure>& failures, const QString& page);

} // namespace golden

#endif
