#include "batch/claimed_names.h"

#include <functional>

namespace {

constexpr std::uint64_t FirstSlots = 4096; // a power of two, as all sizes that follow

struct RecordHead {
    std::uint64_t row;
    std::uint64_t size; // of the name behind it
};

} // namespace

tool::ClaimedNames::ClaimedNames() : slots(FirstSlots) {
    table.resize(slots * sizeof(Slot));
}

std::optional<std::uint64_t> tool::ClaimedNames::claim(const std::string& name, std::uint64_t row) {
    const std::uint64_t hash = std::hash<std::string>{}(name);
    std::uint64_t index = hash & (slots - 1);
    for (Slot slot = slotAt(index); slot.record != 0; slot = slotAt(index)) {
        if (slot.hash == hash) {
            if (const auto earlier = rowOf(slot, name)) {
                return earlier;
            }
        }
        index = (index + 1) & (slots - 1);
    }
    const Slot mine{hash, addRecord(name, row)};
    table.write(index * sizeof(Slot), &mine, sizeof(mine));
    if (++used * 2 > slots) {
        grow();
    }
    return std::nullopt;
}

tool::ClaimedNames::Slot tool::ClaimedNames::slotAt(std::uint64_t index) const {
    Slot slot{};
    table.read(index * sizeof(Slot), &slot, sizeof(slot));
    return slot;
}

std::uint64_t tool::ClaimedNames::freeSlot(std::uint64_t hash) const {
    std::uint64_t index = hash & (slots - 1);
    while (slotAt(index).record != 0) {
        index = (index + 1) & (slots - 1);
    }
    return index;
}

std::uint64_t tool::ClaimedNames::addRecord(const std::string& name, std::uint64_t row) {
    const RecordHead head{row, name.size()};
    const std::uint64_t place = namesSize;
    names.write(place, &head, sizeof(head));
    names.write(place + sizeof(head), name.data(), name.size());
    namesSize += sizeof(head) + name.size();
    return place + 1;
}

std::optional<std::uint64_t> tool::ClaimedNames::rowOf(const Slot& slot,
                                                       const std::string& name) const {
    RecordHead head{};
    names.read(slot.record - 1, &head, sizeof(head));
    if (head.size != name.size()) {
        return std::nullopt;
    }
    std::string recorded(name.size(), '\0');
    names.read(slot.record - 1 + sizeof(head), recorded.data(), recorded.size());
    return recorded == name ? std::optional(head.row) : std::nullopt;
}

void tool::ClaimedNames::grow() {
    const UnnamedFile old = std::move(table);
    const std::uint64_t oldSlots = slots;
    slots *= 2;
    table = UnnamedFile();
    table.resize(slots * sizeof(Slot));
    for (std::uint64_t i = 0; i < oldSlots; ++i) {
        Slot slot{};
        old.read(i * sizeof(Slot), &slot, sizeof(slot));
        if (slot.record != 0) {
            table.write(freeSlot(slot.hash) * sizeof(Slot), &slot, sizeof(slot));
        }
    }
}
