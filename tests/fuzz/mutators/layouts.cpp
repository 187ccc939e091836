// Most changes of single bytes leave no XML. So three of four changes keep the structure of a layout:
// the text of one element changes, or an item goes, comes twice or moves.
#include "mutators/mutator.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

namespace {

using Random = std::minstd_rand;

constexpr const char* Numbers[] = {
    "-2147483648", "-361", "-90",  "-1",  "0",    "1",     "2",          "3",          "7",
    "45",          "58",   "90",   "100", "300",  "600",   "1000",       "4096",       "32767",
    "32768",       "1e9",  "Auto", "1*",  "999*", "65535", "2147483647", "1515870810", "0,0,0,0",
};

constexpr std::size_t LongestGrowth = 64;

std::size_t upTo(std::size_t limit, Random& random) {
    return limit == 0 ? 0 : random() % limit;
}

// What stands between two tags. Of no length where there is no such place.
struct Stretch {
    std::size_t start;
    std::size_t length;
};

Stretch anyText(const std::string& document, Random& random) {
    std::size_t tag = document.find('>', upTo(document.size(), random));
    tag = tag == std::string::npos ? document.find('>') : tag;
    const std::size_t start = tag == std::string::npos ? document.size() : tag + 1;
    const std::size_t end = std::min(document.find('<', start), document.size());
    return {start, end - start};
}

void changeText(std::string& document, Random& random) {
    const Stretch place = anyText(document, random);
    std::string text = document.substr(place.start, place.length);
    if (random() % 2 == 0) {
        text = Numbers[random() % std::size(Numbers)];
    } else {
        text.resize(text.size() + LongestGrowth);
        text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), place.length,
                                     text.size()));
        std::replace(text.begin(), text.end(), '<', ' ');
    }
    document.replace(place.start, place.length, text);
}

Stretch anyItem(const std::string& document, Random& random) {
    const std::string start = "<VelnorItem ";
    const std::string end = "</VelnorItem>";
    std::size_t first = document.find(start, upTo(document.size(), random));
    first = first == std::string::npos ? document.find(start) : first;
    const std::size_t last =
        first == std::string::npos ? std::string::npos : document.find(end, first);
    return last == std::string::npos ? Stretch{0, 0} : Stretch{first, last + end.size() - first};
}

// The item lands where another text begins, perhaps inside another item.
void changeItems(std::string& document, Random& random) {
    const Stretch place = anyItem(document, random);
    const std::string item = document.substr(place.start, place.length);
    const auto what = random() % 3;
    if (what != 0) {
        document.erase(place.start, place.length);
    }
    if (what != 1) {
        document.insert(anyText(document, random).start, item);
    }
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                    unsigned seed) {
    Random random(seed);
    const auto what = random() % 4;
    if (what == 0) {
        return LLVMFuzzerMutate(data, size, room);
    }
    std::string document(data, data + size);
    if (what == 1) {
        changeItems(document, random);
    } else {
        changeText(document, random);
    }
    const std::size_t changed = std::min(document.size(), room);
    std::copy_n(document.begin(), changed, data);
    return changed;
}
