/* A process that may start no further thread: everything happens on the thread of the call. */
#include "support/disks.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <errno.h>
#include <pthread.h>
#include <stdio.h>
#include <string.h>
#include <sys/resource.h>

#define SHOWN(more)                                                                                \
    "<VelnorItem class='image'><x>50</x><y>60</y><filepath>shown.%s</filepath>" more "</"          \
    "VelnorItem>"
#define PAGE                                                                                       \
    CANVAS_OF(1000, 1000)                                                                          \
    BOX QR_CODE LABEL SHOWN("") SHOWN("<scalex>150</scalex><scaley>70</scaley>")                   \
        SHOWN("<width>300</width><height>200</height><aspect>2</aspect><rotation>30</rotation>")

static const char* suffixes[] = {"png", "bmp", "jpg", "ppm"};
enum { Suffixes = sizeof suffixes / sizeof *suffixes };

static void* endAtOnce(void* argument) {
    return argument;
}

static void startWithoutThreads(void) {
    const struct rlimit none = {0, 0};
    pthread_t thread;
    becomeOrdinaryUser();
    startLibrary();
    CHECK(setrlimit(RLIMIT_NPROC, &none) == 0);
    CHECK_INT(EAGAIN, pthread_create(&thread, NULL, endAtOnce, NULL));
    captureOutput();
}

CASE(pictures_of_every_format_are_written_without_a_further_thread) {
    startWithoutThreads();
    const char* document = writeLayout("page.xml", CANVAS_OF(1000, 1000) BOX QR_CODE LABEL);
    for (int i = 0; i < Suffixes; ++i) {
        CHECK(exists(render(document, textOf("page.%s", suffixes[i]))));
    }
    checkSilent();
}

static void checkIsShown(const char* suffix) {
    const char* page = textOf(PAGE, suffix, suffix, suffix);
    CHECK(exists(render(writeLayout("page.xml", page), "page.png")));
    const char* none = textOf(PAGE, "none", "none", "none");
    CHECK(exists(render(writeLayout("none.xml", none), "none.png")));
    CHECK(!sameContent("page.png", "none.png"));
}

CASE(pictures_of_every_format_are_shown_without_a_further_thread) {
    startWithoutThreads();
    const char* shown = writeLayout("shown.xml", CANVAS_OF(600, 700) BOX);
    for (int i = 0; i < Suffixes; ++i) {
        render(shown, textOf("shown.%s", suffixes[i]));
        checkIsShown(suffixes[i]);
    }
    checkSilent();
}

/* A grey icon of 256 x 256 dots of 32 bits, which Qt's own reader converts on threads. */
static void writeIcon(const char* name) {
    static const unsigned char headers[62] = {
        [2] = 1,   [4] = 1,                                    /* an icon of one */
        [10] = 1,  [12] = 32, [16] = 4, [18] = 22,             /* bits, size, offset */
        [22] = 40, [27] = 1,  [31] = 2, [34] = 1,  [36] = 32}; /* width, height, bits */
    static unsigned char dots[256 * 256 * 4];
    memset(dots, 0x80, sizeof dots);
    FILE* file = fopen(pathOf(name), "wb");
    CHECK(file != NULL);
    CHECK(fwrite(headers, sizeof headers, 1, file) == 1);
    CHECK(fwrite(dots, sizeof dots, 1, file) == 1);
    CHECK(fclose(file) == 0);
}

CASE(a_large_icon_is_shown_without_a_further_thread) {
    startWithoutThreads();
    writeIcon("shown.ico");
    checkIsShown("ico");
    checkSilent();
}
