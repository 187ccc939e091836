#include "engine/document_view.h"

#include "document/canvas_element.h"
#include "document/dom_loading.h"
#include "engine/document_source.h"
#include "failure.h"
#include "render/blank_surface.h"

namespace {

constexpr bool KeepUnresolved = false;

void apply(VelnorXml& xml, const tool::Setting& setting) {
    xml.SetObjectTagDictionary(setting.name.c_str(), setting.value.c_str(),
                               setting.kind == tool::Setting::Kind::Link, KeepUnresolved);
}

std::string placeOf(const tool::XmlError& error) {
    return "line " + std::to_string(error.line) + ", column " + std::to_string(error.column) +
           ": " + error.reason.toStdString();
}

std::optional<std::string> faultOf(const VelnorDrawableCanvas& canvas) {
    if (canvas.width <= 0) {
        return "the canvas has no width";
    }
    if (canvas.height <= 0 && canvas.height != velnor::NotGiven) {
        return "the canvas has no height";
    }
    // Where a roll is kept is known when it is drawn; it has one row at least.
    const int rows = canvas.height == velnor::NotGiven ? 1 : canvas.height;
    if (!velnor::isSurfaceSize(canvas.width, rows)) {
        return "the canvas is beyond the limits of the library";
    }
    return std::nullopt;
}

} // namespace

tool::DocumentView::DocumentView(const DocumentSource& source)
    : xml(std::make_unique<VelnorXml>(source.path.c_str(), source.images.c_str(),
                                      source.fonts.c_str())) {
    for (const std::string& paramFile : source.paramFiles) {
        xml->ParseParamsApplyTag(paramFile.c_str());
    }
    for (const Setting& setting : source.settings) {
        apply(*xml, setting);
    }
    substituted = xml->ReadXmlApplyTags();
}

std::optional<tool::XmlError> tool::DocumentView::xmlError() const {
    QDomDocument document;
    XmlError error{0, 0, QString()};
    if (document.setContent(substituted, &error.reason, &error.line, &error.column)) {
        return std::nullopt;
    }
    return error;
}

std::optional<std::string> tool::DocumentView::fault() const {
    QDomDocument document;
    if (!velnor::loadXml(document, substituted)) {
        const auto error = xmlError();
        return error ? placeOf(*error) : "the document is beyond the limits of the library";
    }
    const QDomElement itemList = velnor::firstItemList(document);
    if (itemList.isNull()) {
        return "the document is no layout: no VelnorItems inside VelnorRoot";
    }
    if (!velnor::isCanvas(itemList)) {
        return "the first VelnorItems is no canvas: its class is not \"canvas\"";
    }
    const auto parsed = canvas();
    return parsed ? faultOf(*parsed) : "the document has more items than the library takes";
}

QDomDocument tool::DocumentView::tree() const {
    QDomDocument document;
    if (velnor::loadXml(document, substituted)) {
        xml->applyObjectTagsToXmlDoc(document);
    }
    return document;
}

std::unique_ptr<VelnorDrawableCanvas> tool::DocumentView::canvas() const {
    VelnorDrawableCanvas* parsed = nullptr;
    xml->Parse(&parsed);
    return std::unique_ptr<VelnorDrawableCanvas>(parsed);
}

void tool::requireDocument(const DocumentSource& source) {
    const DocumentView view(source);
    if (const auto fault = view.fault()) {
        throw Failure(ExitCode::UnreadableDocument, "'" + source.name + "': " + *fault);
    }
}
