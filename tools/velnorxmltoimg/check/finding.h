// What `check` tells about a document.
#ifndef VELNOR_TOOL_FINDING_H
#define VELNOR_TOOL_FINDING_H

#include <QDomElement>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace tool {

// In the order of finding_codes.cpp, which names and explains them.
enum class Code {
    Unreadable,
    Xml,
    NoCanvas,
    CanvasSize,
    Limits,
    UnknownElement,
    UnknownAttribute,
    UnknownClass,
    RepeatedElement,
    RepeatedId,
    MissingId,
    PlaceholderUnset,
    TagUnused,
    MalformedValue,
    MissingLength,
    CellOutside,
    SpanOutside,
    RotationRange,
    MissingSize,
    NoEffect,
    OutsideCanvas,
    CutOff,
    BeyondMetre,
    ImageMissing,
    ImageUnreadable,
    FontNotNamed,
    FontSubstituted,
    BoldMissing,
    ItalicMissing,
    FontsizeMissing,
    GlyphMissing,
    TextTiny,
    TextTooLong,
    BarcodeEmpty,
    BarcodeType,
    BarcodeNotHexadecimal,
    BarcodeRefused,
    BarcodeWarning,
    BarcodeLarger,
    BarcodeModule,
    BarcodeRotation,
    BarcodeCovered,
    QuietZone,
    QuietZoneEdge,
    Thickness,
    Style,
    Length
};

struct CodeEntry {
    Code code;
    const char* name;
    const char* meaning;
};

const std::vector<CodeEntry>& findingCodes();
const char* nameOf(Code code);
std::optional<Code> codeOfName(const std::string& name);

constexpr int NoLine = 0;

struct Finding {
    Code code;
    int line;         // NoLine where it is not known
    std::string kind; // the class of the item, "canvas" or "document"
    std::string item; // its id
    std::string text;
};

class Findings {
public:
    // About the item or the canvas that the element is or lies in; by default in its line.
    void add(Code code, const QDomElement& about, const QString& text);
    void add(Code code, const QDomElement& about, int line, const QString& text);

    // About the document as a whole.
    void addToDocument(Code code, int line, const QString& text);

    // By line; those without one first.
    std::vector<Finding> inOrder() const;

private:
    std::vector<Finding> findings;
};

// A value in quotation marks, cut where it is long.
QString quoted(const QString& value);

// "1 dot", "2 dots"
QString counted(int count, const char* thing);

} // namespace tool

#endif
