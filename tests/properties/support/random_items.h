// Items of every kind with random settings. Each really draws something, and no point of it lies
// further than `Reach` from where it is put, however it is turned.
#ifndef VELNOR_TESTS_RANDOM_ITEMS_H
#define VELNOR_TESTS_RANDOM_ITEMS_H

#include "support/documents.h"
#include "support/seeds.h"

constexpr int Reach = 300;

const std::vector<QByteArray>& itemKinds();

Item randomItem(Random& random, const QByteArray& kind);
Item randomItem(Random& random);
// Names the tests of a kind of item.
struct KindAsName {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.toStdString();
    }
};

// A quarter, a half or three quarters of a turn: what is drawn stays on the raster.
int randomQuarterTurn(Random& random);
// Any angle that the library takes as one; never upright.
int randomAngle(Random& random);

#endif
