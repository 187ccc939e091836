// determinism [GoogleTest options] [SEED]...
//
// Each SEED adds a random order of the cases.
#include "seeds.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    for (int i = 1; i < argc; ++i) {
        bool isNumber = false;
        orderSeeds().push_back(QString::fromLocal8Bit(argv[i]).toUInt(&isNumber));
        if (!isNumber) {
            std::cerr << "no seed: " << argv[i] << '\n';
            return 2;
        }
    }
    return RUN_ALL_TESTS();
}
