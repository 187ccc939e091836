// properties [GoogleTest options] [SEED]...
//
// Tries every rule with the fixed seeds and with those given.
#include "support/seeds.h"

#include <velnorxmltoimg.h>

#include <gtest/gtest.h>

#include <iostream>
#include <thread>

namespace {

void startLibrary() {
    std::thread(xmlToImgInitializeQtNoReturn).detach();
    while (xmlToImgQtInitialized() != 1) {
        std::this_thread::yield();
    }
    xmlToImgSetEmbeddedFontKeepFlag(1);
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (!addSeed(argv[i])) {
            std::cerr << "no seed: " << argv[i] << '\n';
            return 2;
        }
    }
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    std::cout << "seeds:";
    for (const std::uint32_t seed : seeds()) {
        std::cout << ' ' << seed;
    }
    std::cout << std::endl;
    startLibrary();
    return RUN_ALL_TESTS();
}
