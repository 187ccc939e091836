// A layout document behind the library's interface, with its values set.
#ifndef VELNOR_TOOL_LAYOUT_H
#define VELNOR_TOOL_LAYOUT_H

#include "engine/document_source.h"
#include "layout/document_file.h"
#include "layout/handler.h"
#include "layout/layout_options.h"

#include <string>

namespace tool {

struct PrinterSettings {
    int presentation;
    int ejectRetract;
    int timeout;
};

// Needs a QtHost for everything that draws or asks for fonts. Fails with UnreadableDocument where
// there is no such file, and with Usage where the document has no place for a value.
class Layout {
public:
    explicit Layout(const LayoutOptions& options);

    // As a command line or a row of data gives it.
    void set(const Setting& setting);

    // The same; fails with Usage where the document has no such object.
    void setInPlace(const Setting& setting);

    // Whether the value of an object has an element in the document to stand in.
    bool hasPlaceFor(const Setting& setting) const;

    // Back to the values of the options.
    void reset();

    // The library tells nothing: look for the picture.
    void createImage(const std::string& file) const;

    // What validation says, joined without a separator; empty where it finds nothing.
    std::string findings() const;

    PrinterSettings printerSettings() const;

    // What the handler was given so far.
    const DocumentSource& source() const { return given; }

private:
    void applyParams(const std::string& paramFile);
    [[noreturn]] void refuse(const Setting& setting, const std::string& reason) const;

    LayoutOptions options;
    DocumentFile file;
    DocumentSource given;
    Handler handler;
};

} // namespace tool

#endif
