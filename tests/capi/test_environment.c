/* The library takes nothing from the host's surroundings and leaves nothing in them. */
#include "support/files.h"
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

CASE(a_scale_factor_of_the_environment_does_not_change_the_picture) {
    setenv("QT_SCALE_FACTOR", "2", 1);
    setenv("QT_FONT_DPI", "300", 1);
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
