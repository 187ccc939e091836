// What is looked for in a document without a fault, one subject each.
#ifndef VELNOR_TOOL_LINTS_H
#define VELNOR_TOOL_LINTS_H

#include "check/checked_document.h"
#include "check/finding.h"

namespace tool {

// What the library's own validation says.
void addLibraryFindings(const CheckedDocument& document, Findings& findings);

void lintVocabulary(const CheckedDocument& document, Findings& findings);
void lintPlaceholders(const CheckedDocument& document, Findings& findings);
void lintValues(const CheckedDocument& document, Findings& findings);
void lintGrid(const CheckedDocument& document, Findings& findings);
void lintIds(const CheckedDocument& document, Findings& findings);
void lintPlaces(const CheckedDocument& document, Findings& findings);
void lintImages(const CheckedDocument& document, Findings& findings);
void lintTexts(const CheckedDocument& document, Findings& findings);
void lintBarcodes(const CheckedDocument& document, Findings& findings);
void lintCoveredSymbols(const CheckedDocument& document, Findings& findings);
void lintQuietZones(const CheckedDocument& document, Findings& findings);

} // namespace tool

#endif
