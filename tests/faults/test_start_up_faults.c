/* Start-up on a machine that lacks what Qt and fontconfig look for. */
#include "support/descriptors.h"
#include "support/disks.h"
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/signals.h"
#include "support/skipping.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#define PAGE CANVAS_OF(200, 100) BOX QR_CODE LABEL

static atomic_int hasReturned;

static void* runApplication(void* unused) {
    xmlToImgInitializeQtNoReturn();
    atomic_store(&hasReturned, 1);
    return unused;
}

/* Starts the library, whether or not that works. */
static int tryToStart(void) {
    pthread_t thread;
    atomic_store(&hasReturned, 0);
    CHECK(pthread_create(&thread, NULL, runApplication, NULL) == 0);
    while (xmlToImgQtInitialized() == 0 && !atomic_load(&hasReturned)) {
        sleepMilliseconds(1);
    }
    if (atomic_load(&hasReturned)) {
        CHECK(pthread_join(thread, NULL) == 0);
        return 0;
    }
    CHECK(pthread_detach(thread) == 0);
    return 1;
}

static void drawPage(void) {
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    CHECK_INT(200, pngWidth(render(writeLayout("page.xml", PAGE), "page.png")));
}

/* The settings name a folder of fonts whose list fontconfig has to make, and one for that list. */
static void useFontSettings(const char* cache) {
    makeFolder("system-fonts");
    linkFile("system-fonts/mono.ttf", MONO);
    writeFile("fonts.conf", textOf("<?xml version='1.0'?><fontconfig><dir>%s</dir>"
                                   "<cachedir>%s</cachedir></fontconfig>",
                                   pathOf("system-fonts"), cache));
    CHECK(setenv("FONTCONFIG_FILE", pathOf("fonts.conf"), 1) == 0);
}

CASE(start_up_at_a_limit_to_file_sizes_draws_and_leaves_the_signals) {
    const struct rlimit limit = {0, RLIM_INFINITY};
    const struct rlimit none = {RLIM_INFINITY, RLIM_INFINITY};
    useFontSettings(pathOf("cache"));
    const SignalState before = signalState();
    CHECK(setrlimit(RLIMIT_FSIZE, &limit) == 0);
    startLibrary();
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    checkSignalsAre(&before);
    CHECK(setrlimit(RLIMIT_FSIZE, &none) == 0);
    drawPage();
}

CASE(start_up_on_a_full_disk_draws) {
    const char* disk = mountDisk("cache", "size=16k");
    fillDisk(disk);
    useFontSettings(disk);
    startLibrary();
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    drawPage();
}

CASE(start_up_without_font_settings_draws) {
    captureOutput();
    CHECK(setenv("FONTCONFIG_FILE", pathOf("no-such-file"), 1) == 0);
    startLibrary();
    drawPage();
}

CASE(start_up_with_broken_font_settings_draws) {
    captureOutput();
    CHECK(setenv("FONTCONFIG_FILE", writeFile("fonts.conf", "<fontconfig><dir>"), 1) == 0);
    startLibrary();
    drawPage();
}

CASE(start_up_without_home_and_temporary_folder_draws) {
    const char* nowhere = pathOf("no-such-folder");
    const char* names[] = {"HOME",           "TMPDIR",          "XDG_RUNTIME_DIR",
                           "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"};
    for (size_t i = 0; i < sizeof names / sizeof *names; ++i) {
        CHECK(setenv(names[i], nowhere, 1) == 0);
    }
    startLibrary();
    drawPage();
    CHECK(!exists("no-such-folder"));
}

/* As a daemon does for a while, to get its rights back later. */
CASE(start_up_of_a_host_that_acts_for_another_user_draws) {
    const uid_t nobody = 65534;
    if (geteuid() != 0) {
        skipCase("only root may act for another user");
    }
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    CHECK(chmod(scratchFolder(), 0777) == 0);
    CHECK(seteuid(nobody) == 0);
    startLibrary();
    CHECK_INT(200, pngWidth(render(writeLayout("page.xml", PAGE), "page.png")));
    CHECK(seteuid(0) == 0);
}

static void startWithDescriptors(int count) {
    captureOutput();
    leaveDescriptors(count);
    const int isUp = tryToStart();
    allowDescriptors();
    if (!isUp) {
        startLibrary();
    }
    drawPage();
}

CASE(start_up_with_0_free_descriptors_lets_the_host_live) {
    startWithDescriptors(0);
}

CASE(start_up_with_1_free_descriptors_lets_the_host_live) {
    startWithDescriptors(1);
}

CASE(start_up_with_2_free_descriptors_lets_the_host_live) {
    startWithDescriptors(2);
}

CASE(start_up_with_3_free_descriptors_lets_the_host_live) {
    startWithDescriptors(3);
}

CASE(start_up_with_4_free_descriptors_lets_the_host_live) {
    startWithDescriptors(4);
}

CASE(start_up_with_5_free_descriptors_lets_the_host_live) {
    startWithDescriptors(5);
}

CASE(start_up_with_6_free_descriptors_lets_the_host_live) {
    startWithDescriptors(6);
}

CASE(start_up_with_8_free_descriptors_lets_the_host_live) {
    startWithDescriptors(8);
}
