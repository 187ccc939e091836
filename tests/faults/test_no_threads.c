/* A process that may start no further thread: everything happens on the thread of the call. */
#include "support/disks.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <errno.h>
#include <pthread.h>
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

CASE(pictures_of_every_format_are_shown_without_a_further_thread) {
    startWithoutThreads();
    const char* shown = writeLayout("shown.xml", CANVAS_OF(600, 700) BOX);
    for (int i = 0; i < Suffixes; ++i) {
        const char* suffix = suffixes[i];
        render(shown, textOf("shown.%s", suffix));
        const char* page = textOf(PAGE, suffix, suffix, suffix);
        CHECK(exists(render(writeLayout("page.xml", page), "page.png")));
        const char* none = textOf(PAGE, "none", "none", "none");
        CHECK(exists(render(writeLayout("none.xml", none), "none.png")));
        CHECK(!sameContent("page.png", "none.png"));
    }
    checkSilent();
}
