/* The library takes nothing from the host's surroundings and leaves nothing in them. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <locale.h>
#include <pthread.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

extern char** environ;

#define EVERYTHING CANVAS_OF(200, 100) BOX QR_CODE LABEL

static void startAndDrawInSilence(void) {
    captureOutput();
    startLibrary();
    const char* picture = renderLayout("all", EVERYTHING);
    checkSilent();
    CHECK_INT(200, pngWidth(picture));
    CHECK_INT(100, pngHeight(picture));
}

CASE(start_up_and_drawing_are_silent) {
    startAndDrawInSilence();
}

static void* drawEverything(void* unused) {
    (void)unused;
    renderLayout("all", EVERYTHING);
    return NULL;
}

CASE(drawing_on_threads_that_end_is_silent) {
    captureOutput();
    startLibrary();
    for (int i = 0; i < 5; ++i) {
        pthread_t thread;
        CHECK(pthread_create(&thread, NULL, drawEverything, NULL) == 0);
        CHECK(pthread_join(thread, NULL) == 0);
    }
    checkSilent();
    CHECK(exists("all.png"));
}

CASE(a_platform_named_in_the_environment_is_ignored) {
    setenv("QT_QPA_PLATFORM", "nonsense", 1);
    setenv("QT_QPA_PLATFORM_PLUGIN_PATH", "/no/such/folder", 1);
    startAndDrawInSilence();
}

CASE(a_display_platform_named_in_the_environment_is_ignored) {
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    setenv("DISPLAY", ":4711", 1);
    startAndDrawInSilence();
}

CASE(a_theme_named_in_the_environment_is_ignored) {
    setenv("QT_QPA_PLATFORMTHEME", "gtk3", 1);
    setenv("XDG_CURRENT_DESKTOP", "GNOME", 1);
    startAndDrawInSilence();
}

CASE(no_display_is_needed) {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("QT_DEBUG_PLUGINS");
    startAndDrawInSilence();
}

CASE(a_missing_runtime_folder_goes_without_a_word) {
    unsetenv("XDG_RUNTIME_DIR");
    startAndDrawInSilence();
}

CASE(a_runtime_folder_that_does_not_exist_goes_without_a_word) {
    setenv("XDG_RUNTIME_DIR", pathOf("no-such-folder"), 1);
    startAndDrawInSilence();
}

CASE(an_empty_environment_is_enough) {
    clearenv();
    startAndDrawInSilence();
}

/* What Qt reads of screens, layout, fonts, hashes and processors, and the libraries below it of
 * languages. Those that exist to change the glyphs of a program are in docs/security.md. */
static const char* const Variables[][2] = {
    {"QT_SCALE_FACTOR", "2"},
    {"QT_SCALE_FACTOR", "1.5"},
    {"QT_SCREEN_SCALE_FACTORS", "2"},
    {"QT_DEVICE_PIXEL_RATIO", "2"},
    {"QT_DEVICE_PIXEL_RATIO", "auto"},
    {"QT_AUTO_SCREEN_SCALE_FACTOR", "1"},
    {"QT_ENABLE_HIGHDPI_SCALING", "1"},
    {"QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough"},
    {"QT_USE_PHYSICAL_DPI", "1"},
    {"QT_DPI_ADJUSTMENT_POLICY", "AdjustDpi"},
    {"QT_FONT_DPI", "300"},
    {"QT_SUBPIXEL_AA_TYPE", "RGB"},
    {"QT_NO_FT_CACHE", "1"},
    {"QT_ENABLE_GLYPH_CACHE_WORKAROUND", "1"},
    {"QT_LAYOUT_DIRECTION", "RTL"},
    {"QT_QPA_FONTDIR", VELNOR_TEST_FONTS},
    {"QT_HIGHDPI_DISABLE_2X_IMAGE_LOADING", "1"},
    {"QT_HASH_SEED", "4711"},
    {"QT_NO_CPU_FEATURE", "avx2 avx sse4.1 ssse3"},
    {"QT_PLUGIN_PATH", "/no/such/folder"},
    {"HB_OPTIONS", "uniscribe-bug-compatible"},
    {"FC_LANG", "ar"},
    {"LANG", "C.UTF-8"},
    {"LC_ALL", "C"},
    {"XDG_CURRENT_DESKTOP", "KDE"},
};

#define TEXT(y, more)                                                                              \
    "<VelnorItem class='text'><y>" #y "</y><fontname>Liberation Sans</fontname>" more              \
    "<text>AVATo ffi \xc3\x84\xc3\xb6 4711</text></VelnorItem>"
#define TEXTS                                                                                      \
    CANVAS_OF(400, 400)                                                                            \
    TEXT(0, "<fontsize>7</fontsize>")                                                              \
    TEXT(20, "<fontsize>10</fontsize><antialias>1</antialias>")                                    \
    TEXT(50, "<fontsize>10</fontsize><bold>1</bold><italic>1</italic>")                            \
    TEXT(80, "<fontsize>9</fontsize><antialias>1</antialias><rotation>7</rotation>")               \
    TEXT(150, "<fontsize>30</fontsize><antialias>1</antialias>")                                   \
    TEXT(250, "<fontsize>30</fontsize><width>120</width><height>40</height><flags>4096</flags>")

static const char* writeTexts(void) {
    hideSystemFonts();
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    return writeLayout("texts.xml", TEXTS);
}

CASE(variables_of_screens_and_processors_change_no_dot) {
    const char* document = writeTexts();
    CHECK_INT(0, runSmallHost(document, pathOf("plain.png")));
    for (size_t i = 0; i < sizeof Variables / sizeof *Variables; ++i) {
        CHECK(setenv(Variables[i][0], Variables[i][1], 1) == 0);
        CHECK_INT(0, runSmallHost(document, pathOf("other.png")));
        if (!sameContent("plain.png", "other.png")) {
            failCase(__FILE__, __LINE__, "%s changes dots", Variables[i][0]);
        }
        CHECK(unsetenv(Variables[i][0]) == 0);
    }
}

CASE(an_outdated_variable_of_the_screen_is_ignored_in_silence) {
    setenv("QT_DEVICE_PIXEL_RATIO", "2", 1);
    startAndDrawInSilence();
}

static const int categories[] = {LC_CTYPE,    LC_NUMERIC,  LC_TIME, LC_COLLATE,
                                 LC_MONETARY, LC_MESSAGES, LC_ALL};
enum { CategoryCount = sizeof categories / sizeof *categories };

static void hostKeepsLocale(const char* ofHost, const char* ofEnvironment) {
    setenv("LC_ALL", ofEnvironment, 1);
    CHECK(setlocale(LC_ALL, ofHost) != NULL);
    const char* before[CategoryCount];
    for (int i = 0; i < CategoryCount; ++i) {
        before[i] = textOf("%s", setlocale(categories[i], NULL));
    }
    startLibrary();
    renderLayout("all", EVERYTHING);
    for (int i = 0; i < CategoryCount; ++i) {
        CHECK_TEXT(before[i], setlocale(categories[i], NULL));
    }
}

CASE(a_host_in_the_c_locale_stays_in_it) {
    hostKeepsLocale("C", "C.UTF-8");
}

CASE(a_host_in_a_utf8_locale_stays_in_it) {
    hostKeepsLocale("C.UTF-8", "C");
}

CASE(a_host_that_never_set_a_locale_is_not_given_one) {
    setenv("LC_ALL", "C.UTF-8", 1);
    startLibrary();
    renderLayout("all", EVERYTHING);
    CHECK_TEXT("C", setlocale(LC_ALL, NULL));
}

static const char* environmentText(void) {
    const char* text = "";
    for (char** entry = environ; *entry != NULL; ++entry) {
        text = textOf("%s%s\n", text, *entry);
    }
    return text;
}

CASE(the_environment_stays_as_it_was) {
    const char* before = environmentText();
    startLibrary();
    renderLayout("all", EVERYTHING);
    CHECK_TEXT(before, environmentText());
}

CASE(start_up_leaves_no_file_behind) {
    const char* home = makeFolder("home");
    setenv("HOME", home, 1);
    setenv("TMPDIR", home, 1);
    unsetenv("XDG_RUNTIME_DIR");
    unsetenv("XDG_CACHE_HOME");
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("XDG_DATA_HOME");
    CHECK(chdir(home) == 0);
    startLibrary();
    xmlToImgFreeHandler(xmlToImgCreateHandler("no-such-document.xml"));
    CHECK_TEXT("", listTree("home"));
}

CASE(drawing_leaves_nothing_but_the_picture) {
    setenv("TMPDIR", makeFolder("temporary"), 1);
    startLibrary();
    const char* document = writeLayout("all.xml", EVERYTHING);
    makeFolder("out");
    render(document, "out/all.png");
    CHECK_TEXT("all.png\n", listTree("out"));
    CHECK_TEXT("", listTree("temporary"));
}
