#include "check/finding.h"

#include <algorithm>

namespace {

using tool::Code;

const std::vector<tool::CodeEntry> Codes = {
    {Code::Unreadable, "unreadable", "the document or a parameter file cannot be read"},
    {Code::Xml, "xml", "the document is no well-formed XML"},
    {Code::NoCanvas, "no-canvas", "the document has no canvas"},
    {Code::CanvasSize, "canvas-size", "the canvas has no width, or a height of 0 or less"},
    {Code::Limits, "limits", "the document is beyond a limit of the library"},
    {Code::UnknownElement, "unknown-element", "an element that is not known there"},
    {Code::UnknownAttribute, "unknown-attribute", "an attribute that is not read"},
    {Code::UnknownClass, "unknown-class", "an item of an unknown class, or of none"},
    {Code::RepeatedElement, "repeated-element", "an element stands twice; the later one counts"},
    {Code::RepeatedId, "repeated-id", "two items have the same id"},
    {Code::MissingId, "missing-id", "printer settings in a canvas without an id"},
    {Code::PlaceholderUnset, "placeholder-unset", "a placeholder got no value"},
    {Code::TagUnused, "tag-unused", "the document has no placeholder for a value"},
    {Code::MalformedValue, "malformed-value", "a value that the element does not take"},
    {Code::MissingLength, "missing-length", "a row without a height, a column without a width"},
    {Code::CellOutside, "cell-outside", "a row or column that the grid does not have"},
    {Code::SpanOutside, "span-outside", "a span below 1 or past the end of the grid"},
    {Code::RotationRange, "rotation-range", "a rotation that counts as none"},
    {Code::MissingSize, "missing-size", "a rectangle or ellipse without a width or height"},
    {Code::NoEffect, "no-effect", "an element that has no effect beside the others"},
    {Code::OutsideCanvas, "outside-canvas", "an item of which no dot lies on the canvas"},
    {Code::CutOff, "cut-off", "an item of which the edge of the canvas cuts something off"},
    {Code::BeyondMetre, "beyond-metre", "an item below the metre that is drawn of a roll"},
    {Code::ImageMissing, "image-missing", "a picture file that does not exist"},
    {Code::ImageUnreadable, "image-unreadable", "a file that is no picture"},
    {Code::FontNotNamed, "font-not-named", "a text without a font name"},
    {Code::FontSubstituted, "font-substituted", "a font that is not there; another is used"},
    {Code::BoldMissing, "bold-missing", "a font without bold letters; they are imitated"},
    {Code::ItalicMissing, "italic-missing", "a font without italic letters; they are imitated"},
    {Code::FontsizeMissing, "fontsize-missing", "a text without a font size"},
    {Code::GlyphMissing, "glyph-missing", "a character that the font does not have"},
    {Code::TextTiny, "text-tiny", "a text that shrank below 6 points"},
    {Code::TextTooLong, "text-too-long", "a text that is too long to be drawn"},
    {Code::BarcodeEmpty, "barcode-empty", "a barcode without data"},
    {Code::BarcodeType, "barcode-type", "a type of barcode that does not exist"},
    {Code::BarcodeNotHexadecimal, "barcode-not-hexadecimal",
     "data that should be bytes in hexadecimal and are not"},
    {Code::BarcodeRefused, "barcode-refused", "a barcode that cannot be made"},
    {Code::BarcodeWarning, "barcode-warning", "a barcode beside its standard"},
    {Code::BarcodeLarger, "barcode-larger", "a barcode that is larger than its box"},
    {Code::BarcodeModule, "barcode-module", "a barcode whose modules are one dot"},
    {Code::BarcodeRotation, "barcode-rotation", "a barcode turned by no quarter turns"},
    {Code::BarcodeCovered, "barcode-covered", "a barcode and another item on the same dots"},
    {Code::QuietZone, "quiet-zone", "something beside a barcode where it must be white"},
    {Code::QuietZoneEdge, "quiet-zone-edge", "a barcode too near to the edge of the picture"},
    {Code::Thickness, "thickness", "a shape without a thickness"},
    {Code::Style, "style", "a style of lines that does not exist"},
    {Code::Length, "length", "a line without a length"},
};

} // namespace

const std::vector<tool::CodeEntry>& tool::findingCodes() {
    return Codes;
}

const char* tool::nameOf(Code code) {
    return Codes.at(static_cast<size_t>(code)).name;
}

std::optional<Code> tool::codeOfName(const std::string& name) {
    const auto found = std::find_if(Codes.begin(), Codes.end(),
                                    [&name](const CodeEntry& entry) { return entry.name == name; });
    return found == Codes.end() ? std::nullopt : std::optional<Code>(found->code);
}
