// Which rows of the data one of several runs takes.
#ifndef VELNOR_TOOL_SHARD_H
#define VELNOR_TOOL_SHARD_H

#include <cstdint>
#include <string>

namespace tool {

struct Shard {
    std::uint64_t index = 1; // from 1
    std::uint64_t count = 1;

    bool takes(std::uint64_t row) const { return (row - 1) % count == index - 1; }
};

// From "2/7". Fails with Usage.
Shard parseShard(const std::string& text);

} // namespace tool

#endif
