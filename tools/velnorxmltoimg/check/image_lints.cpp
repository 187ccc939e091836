// Picture files that hold no picture. Those that are missing are the library's own finding.
#include "check/lints.h"

#include <QFile>

void tool::lintImages(const CheckedDocument& document, Findings& findings) {
    for (const CheckedItem& item : document.items()) {
        if (item.drawn->type != velnor::ImageKind || !velnor::isVisible(*item.drawn)) {
            continue;
        }
        const auto& image = static_cast<const VelnorDrawableImage&>(*item.drawn);
        if (QFile::exists(image.filepath) && !document.drawn().isDrawn(image)) {
            findings.add(Code::ImageUnreadable, item.element,
                         QStringLiteral("%1 is no picture that the library reads")
                             .arg(quoted(image.filepath)));
        }
    }
}
