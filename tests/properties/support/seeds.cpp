#include "support/seeds.h"

#include <QString>

namespace {

std::vector<std::uint32_t>& allSeeds() {
    static std::vector<std::uint32_t> list = {1, 2, 3, 4, 5, 6, 7, 8};
    return list;
}

} // namespace

int Random::number(int least, int most) {
    // The distributions of the standard library differ from one library to the next.
    const auto choices = static_cast<std::uint32_t>(most - least + 1);
    return least + static_cast<int>(engine() % choices);
}

const std::vector<std::uint32_t>& seeds() {
    return allSeeds();
}

bool addSeed(const std::string& text) {
    bool isNumber = false;
    const std::uint32_t seed = QString::fromStdString(text).toUInt(&isNumber);
    if (isNumber) {
        allSeeds().push_back(seed);
    }
    return isNumber;
}
