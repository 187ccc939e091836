#include "check/check_document.h"

#include "check/faults.h"
#include "check/lints.h"
#include "handler/velnorxml.h"

#include <velnorxmltoimg.h>

#include <array>

namespace {

using tool::ExitCode;
using tool::Failure;
using tool::Findings;
using tool::Layout;
using tool::LayoutOptions;
using tool::Setting;

// While this lives, the fonts of a document stay registered, whichever of its handlers is freed.
// Afterwards none are: the next document has to have its own.
class KeptFonts {
public:
    KeptFonts() { xmlToImgSetEmbeddedFontKeepFlag(1); }
    ~KeptFonts() {
        xmlToImgSetEmbeddedFontKeepFlag(0);
        VelnorXml::removeEmbeddedFonts();
    }
    KeptFonts(const KeptFonts&) = delete;
    KeptFonts& operator=(const KeptFonts&) = delete;
};

// A document with a fault may have no place for the values; the fault is told then.
void setAll(Layout& layout, const std::vector<Setting>& settings) {
    try {
        for (const Setting& setting : settings) {
            layout.setInPlace(setting);
        }
    } catch (const Failure& failure) {
        if (failure.code != ExitCode::UnreadableDocument) {
            throw;
        }
    }
}

void runLints(const tool::CheckedDocument& document, Findings& findings) {
    static constexpr std::array Lints = {tool::lintVocabulary,     tool::lintIds,
                                         tool::lintPlaceholders,   tool::lintValues,
                                         tool::lintGrid,           tool::addLibraryFindings,
                                         tool::lintImages,         tool::lintTexts,
                                         tool::lintBarcodes,       tool::lintPlaces,
                                         tool::lintCoveredSymbols, tool::lintQuietZones};
    for (const auto lint : Lints) {
        lint(document, findings);
    }
}

// True where the document has a fault.
bool check(const LayoutOptions& options, Findings& findings) {
    LayoutOptions withoutSettings = options;
    withoutSettings.settings.clear();
    Layout layout(withoutSettings);
    setAll(layout, options.settings);
    const tool::DocumentView view(layout.source());
    if (tool::addFault(view, findings)) {
        return true;
    }
    const tool::CheckedDocument document(layout, view);
    if (document.drawn().picture().isNull()) {
        findings.add(
            tool::Code::Limits, document.canvasElement(),
            QStringLiteral("the picture with its margins is beyond the limits of the library"));
        return true;
    }
    runLints(document, findings);
    return false;
}

} // namespace

tool::Verdict tool::checkDocument(const LayoutOptions& options) {
    const KeptFonts fonts;
    Findings findings;
    bool isFaulty = true;
    try {
        isFaulty = check(options, findings);
    } catch (const Failure& failure) {
        if (failure.code != ExitCode::UnreadableDocument) {
            throw;
        }
        findings.addToDocument(Code::Unreadable, NoLine, QString::fromUtf8(failure.what()));
    }
    return {isFaulty, findings.inOrder()};
}
