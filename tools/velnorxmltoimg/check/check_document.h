// Everything that is found in one document.
#ifndef VELNOR_TOOL_CHECK_DOCUMENT_H
#define VELNOR_TOOL_CHECK_DOCUMENT_H

#include "check/finding.h"
#include "layout/layout_options.h"

namespace tool {

struct Verdict {
    bool isFaulty; // cannot be read or drawn
    std::vector<Finding> findings;
};

// Needs a QtHost. Fails with Usage where the document has no place for a value of an object.
Verdict checkDocument(const LayoutOptions& options);

} // namespace tool

#endif
