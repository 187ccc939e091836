// Which row has which output name, for as many rows as there are.
#ifndef VELNOR_TOOL_CLAIMED_NAMES_H
#define VELNOR_TOOL_CLAIMED_NAMES_H

#include "batch/unnamed_file.h"

#include <optional>
#include <string>

namespace tool {

// On disk, since a list in memory would grow with the rows: a table of hashes, half empty at least,
// and beside it the names themselves, so that two names of one hash stay two.
class ClaimedNames {
public:
    ClaimedNames();

    // The row that has the name already; nothing where it is this row's from now on. Fails with
    // NotWritten where the disk is full.
    std::optional<std::uint64_t> claim(const std::string& name, std::uint64_t row);

private:
    struct Slot {
        std::uint64_t hash;
        std::uint64_t record; // its place in the file of names, from 1; 0: a free slot
    };
    Slot slotAt(std::uint64_t index) const;
    std::uint64_t freeSlot(std::uint64_t hash) const;
    std::uint64_t addRecord(const std::string& name, std::uint64_t row);
    std::optional<std::uint64_t> rowOf(const Slot& slot, const std::string& name) const;
    void grow();

    UnnamedFile names;
    std::uint64_t namesSize = 0;
    UnnamedFile table;
    std::uint64_t slots;
    std::uint64_t used = 0;
};

} // namespace tool

#endif
