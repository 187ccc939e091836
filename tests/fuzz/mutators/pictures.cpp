// A PNG file whose check sums are wrong is not read further. So the sums of most changed files are
// made right again.
#include "mutators/mutator.h"

#include <algorithm>
#include <string_view>

namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view Signature = "\x89PNG\r\n\x1a\n"sv;
constexpr std::size_t Frame = 12; // a chunk's length, name and sum

std::uint32_t checkSum(const std::uint8_t* data, std::size_t size) {
    std::uint32_t sum = 0xffffffff;
    for (const std::uint8_t* byte = data; byte != data + size; ++byte) {
        sum ^= *byte;
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xedb88320U : 0U);
        }
    }
    return ~sum;
}

std::uint32_t numberAt(const std::uint8_t* data) {
    return static_cast<std::uint32_t>(data[0]) << 24U | static_cast<std::uint32_t>(data[1]) << 16U |
           static_cast<std::uint32_t>(data[2]) << 8U | data[3];
}

void putNumber(std::uint32_t number, std::uint8_t* data) {
    for (unsigned shift = 32; shift > 0; shift -= 8) {
        *data++ = static_cast<std::uint8_t>(number >> (shift - 8));
    }
}

void correctSums(std::uint8_t* chunk, std::size_t left) {
    while (left >= Frame) {
        const std::size_t length = numberAt(chunk);
        if (length > left - Frame) {
            return;
        }
        putNumber(checkSum(chunk + 4, length + 4), chunk + 8 + length);
        chunk += length + Frame;
        left -= length + Frame;
    }
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                    unsigned seed) {
    const std::size_t changed = LLVMFuzzerMutate(data, size, room);
    const std::string_view bytes(reinterpret_cast<const char*>(data), changed);
    const std::size_t signature = bytes.find(Signature);
    if (seed % 8 != 0 && signature <= 1) { // behind the byte that says how it is shown, or at once
        const std::size_t start = signature + Signature.size();
        correctSums(data + start, changed - start);
    }
    return changed;
}
