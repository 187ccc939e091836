// Hosts print documents of several folders, each with fonts of its own, and keep the fonts.
#include "library.h"
#include "measurements.h"
#include "surroundings.h"
#include "verdict.h"

#include <gtest/gtest.h>

using namespace soak;

namespace {

constexpr int Turns = 20;

void useFontsOf(const char* folder) {
    const Handler handler(xmlToImgCreateHandlerWithDirs("", "", folder));
    ASSERT_TRUE(handler);
}

void useBothFolders() {
    useFontsOf(VELNOR_TEST_FONTS);
    useFontsOf(VELNOR_EXAMPLE_LAYOUTS "/fonts");
}

} // namespace

TEST(KeptFonts, OfTwoFoldersInTurnDoNotAddUp) {
    const Surroundings surroundings;
    startLibrary();
    xmlToImgSetEmbeddedFontKeepFlag(1);
    useBothFolders();
    const long before = measureProcess().held;
    for (int i = 0; i < Turns; ++i) {
        useBothFolders();
    }
    EXPECT_LT(measureProcess().held - before, AllowedHeld) << "KiB";
}
