// The font files of a document or a folder, registered for as long as this lives.
#ifndef VELNOR_TOOL_REGISTERED_FONTS_H
#define VELNOR_TOOL_REGISTERED_FONTS_H

#include "layout/handler.h"
#include "layout/layout_options.h"

namespace tool {

class RegisteredFonts {
public:
    // Of the document, if one is named, and of the options' folder instead, if that is named. Needs a
    // QtHost.
    explicit RegisteredFonts(const LayoutOptions& options);

private:
    Handler handler;
};

} // namespace tool

#endif
