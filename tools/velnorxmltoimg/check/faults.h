// Documents of which the library draws nothing.
#ifndef VELNOR_TOOL_FAULTS_H
#define VELNOR_TOOL_FAULTS_H

#include "check/finding.h"
#include "engine/document_view.h"

namespace tool {

// True, with a finding that says why, where nothing is drawn.
bool addFault(const DocumentView& view, Findings& findings);

} // namespace tool

#endif
