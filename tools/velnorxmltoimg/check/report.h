// Findings as lines of text or of JSON.
#ifndef VELNOR_TOOL_REPORT_H
#define VELNOR_TOOL_REPORT_H

#include "check/finding.h"

#include <ostream>

namespace tool {

// receipt.xml:12: barcode "code": ... [barcode-refused]
void printText(std::ostream& stream, const std::string& file, const Finding& finding);

void printJson(std::ostream& stream, const std::string& file, const Finding& finding);

// The table of codes.
void printCodes(std::ostream& stream);

} // namespace tool

#endif
