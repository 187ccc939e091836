// A temporary file that nobody sees and that is gone with the process, however that ends.
#ifndef VELNOR_TOOL_UNNAMED_FILE_H
#define VELNOR_TOOL_UNNAMED_FILE_H

#include "batch/descriptor.h"

#include <cstdint>

namespace tool {

// Each function fails with NotWritten.
class UnnamedFile {
public:
    UnnamedFile();

    // New bytes are zeros.
    void resize(std::uint64_t size);
    void read(std::uint64_t place, void* bytes, std::uint64_t size) const;
    void write(std::uint64_t place, const void* bytes, std::uint64_t size);

private:
    Descriptor file;
};

} // namespace tool

#endif
