// A layout parsed for the length of one call.
#ifndef VELNOR_API_PARSED_LAYOUT_H
#define VELNOR_API_PARSED_LAYOUT_H

#include "document/elements.h"
#include "handler/velnorxml.h"

#include <memory>

namespace velnor {

struct ParsedLayout {
    int result; // 0 when the document was read; the canvas may be null all the same
    std::unique_ptr<VelnorDrawableCanvas> canvas;
};

inline ParsedLayout parseLayout(VelnorXml& handler) {
    VelnorDrawableCanvas* canvas = nullptr;
    const int result = handler.Parse(&canvas);
    return {result, std::unique_ptr<VelnorDrawableCanvas>(canvas)};
}

} // namespace velnor

#endif
