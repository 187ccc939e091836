// The libraries that pictures depend on: what they were made with, and what is loaded now.
#ifndef VELNOR_GOLDEN_VERSIONS_H
#define VELNOR_GOLDEN_VERSIONS_H

#include "golden_case.h"

#include <QMap>
#include <QString>

namespace golden {

using Versions = QMap<QString, QString>; // of library

Versions loadedVersions();

// In the form of versions.txt: one line "library version" for each.
QString asText(const Versions& versions);

// Empty where the case is to be run. A case is passed over where <root>/version_dependent.txt names it
// and a library that it depends on has another version than in <root>/versions.txt.
QString reasonToSkip(const GoldenCase& golden, const Versions& loaded);

} // namespace golden

#endif
