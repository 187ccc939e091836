// The file of a layout document, and the folders beside it.
#ifndef VELNOR_TOOL_DOCUMENT_FILE_H
#define VELNOR_TOOL_DOCUMENT_FILE_H

#include "layout/layout_options.h"

#include <QTemporaryDir>

#include <memory>
#include <string>

namespace tool {

// Fails with UnreadableDocument, and the reason, for what is no readable regular file.
void requireReadable(const std::string& file);

// The folder as the library takes it; empty stays empty. Fails with Usage where there is none.
std::string folderGiven(const std::string& folder);

// What comes by standard input is kept in a folder of its own until this is destroyed. Its pictures
// and fonts are looked for in the current folder, as if it lay there.
class DocumentFile {
public:
    explicit DocumentFile(const std::string& document);

    const std::string& path() const { return documentPath; }

    // The folders to hand to the library: absolute, or empty where the library's own rule holds.
    std::string images(const LayoutOptions& options) const;
    std::string fonts(const LayoutOptions& options) const;

private:
    std::unique_ptr<QTemporaryDir> inputFolder;
    std::string documentPath;
};

} // namespace tool

#endif
