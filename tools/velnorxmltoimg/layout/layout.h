// A layout document behind the library's interface, with its values set.
#ifndef VELNOR_TOOL_LAYOUT_H
#define VELNOR_TOOL_LAYOUT_H

#include "layout/document_file.h"
#include "layout/handler.h"
#include "layout/layout_options.h"

#include <string>
#include <vector>

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

    // Whether the value of an object has an element in the document to stand in.
    bool hasPlaceFor(const Setting& setting) const;

    // Back to the values of the options.
    void reset();

    // The library tells nothing: look for the picture.
    void createImage(const std::string& file) const;

    // What validation says, joined without a separator; empty where it finds nothing.
    std::string findings() const;

    PrinterSettings printerSettings() const;

    // The document's path, whether it was named or came by standard input.
    const std::string& path() const { return file.path(); }

    // As the user named it, for messages.
    const std::string& name() const { return options.document; }

    // What the handler was given: its folders, and its values in their order.
    const std::string& images() const { return imageFolder; }
    const std::string& fonts() const { return fontFolder; }
    const std::vector<std::string>& paramFiles() const { return options.paramFiles; }
    const std::vector<Setting>& settings() const { return givenSettings; }

private:
    void applyParams(const std::string& paramFile);
    [[noreturn]] void refuse(const Setting& setting, const std::string& reason) const;

    LayoutOptions options;
    DocumentFile file;
    std::string imageFolder;
    std::string fontFolder;
    std::vector<Setting> givenSettings;
    Handler handler;
};

} // namespace tool

#endif
