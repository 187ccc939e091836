#include "layout/registered_fonts.h"

#include "layout/document_file.h"

tool::RegisteredFonts::RegisteredFonts(const LayoutOptions& options) {
    if (!options.document.empty()) {
        const DocumentFile file(options.document);
        handler = createHandler(file.path(), {}, file.fonts(options));
    } else if (!options.fonts.empty()) {
        handler = createHandler({}, {}, folderGiven(options.fonts));
    }
}
