// A finished picture on its way to where the user wants it.
#ifndef VELNOR_TOOL_PICTURE_OUTPUT_H
#define VELNOR_TOOL_PICTURE_OUTPUT_H

#include <string>

namespace tool {

class CommandOptions;
class Layout;

enum class Mono { No, Threshold, Ordered, Diffuse };

struct OutputOptions {
    std::string picture; // "-": standard output, as PNG
    Mono mono = Mono::No;
};

// -o and --mono; `what` describes -o.
void addOutputOptions(CommandOptions& command, OutputOptions& options, const std::string& what);

// Fails with Usage where the suffix names no format of pictures.
void requirePictureFormat(const std::string& picture);

// Renders to a fresh name beside the picture, makes sure that a readable picture arose, and renames
// it: a file that was there before is replaced by a whole picture or stays. Fails with
// UnreadableDocument or NotWritten.
void writePicture(const Layout& layout, const OutputOptions& options);

} // namespace tool

#endif
