// The unit tests run inside a GUI application without a screen, at 96 dots per inch, and without the
// machine's fonts.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        // Without an application: what that leaks would make a sanitizer fail the listing.
        return RUN_ALL_TESTS();
    }
    qputenv("FONTCONFIG_FILE", VELNOR_FONT_SETTINGS);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    char program[] = "unit";
    char platformOption[] = "-platform";
    char platform[] = "offscreen";
    char* arguments[] = {program, platformOption, platform, nullptr};
    int count = 3;
    QGuiApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
