/* Threads of the host: any of them may call, and nothing is left of those that end. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <dirent.h>
#include <pthread.h>

enum { Threads = 20 };

#define SHRINKING                                                                                  \
    CANVAS_OF(300, 200)                                                                            \
    "<VelnorItem class='text' id='t'><x>5</x><y>5</y><width>%d</width><height>9</height>"          \
    "<flags>4096</flags><fontname>Liberation Sans</fontname><fontsize>60</fontsize>"               \
    "<text>A text that shrinks and shrinks until it fits</text></VelnorItem>"

static void onThread(void* (*work)(void*), void* given) {
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, work, given) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
}

static void* shrinkText(void* handler) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("shrunk.png")));
    return NULL;
}

static void startWithFonts(void) {
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    startLibrary();
}

/* Texts of many sizes fill Qt's font cache, which then starts a timer on the thread. */
CASE(a_text_that_shrinks_on_a_plain_thread_is_silent) {
    captureOutput();
    startWithFonts();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", textOf(SHRINKING, 20)));
    onThread(shrinkText, handler);
    onThread(shrinkText, handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
    CHECK(exists("shrunk.png"));
}

CASE(texts_that_shrink_on_the_main_thread_are_silent) {
    captureOutput();
    startWithFonts();
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    for (int width = 5; width < 100; width += 5) {
        writeLayout("page.xml", textOf(SHRINKING, width));
        shrinkText(handler);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
    CHECK(exists("shrunk.png"));
}

/* Everything that touches fonts, in the life of one thread. */
static void* useFonts(void* document) {
    int bold = 0;
    int italic = 0;
    void* handler = xmlToImgCreateHandler(document);
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic));
    CHECK_INT(-1, xmlToImgGetFontProperty(handler, "Nowhere", &bold, &italic));
    CHECK_INT(0, xmlToImgCheckCorrect(handler, NULL, 0));
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    shrinkText(handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    return NULL;
}

CASE(fonts_are_used_in_silence_on_threads_that_come_and_go) {
    captureOutput();
    startWithFonts();
    const char* document = writeLayout("page.xml", textOf(SHRINKING, 20));
    for (int i = 0; i < Threads; ++i) {
        onThread(useFonts, (void*)document);
    }
    checkSilent();
}

static int openFiles(void) {
    DIR* folder = opendir("/proc/self/fd");
    CHECK(folder != NULL);
    int count = 0;
    while (readdir(folder) != NULL) {
        ++count;
    }
    CHECK(closedir(folder) == 0);
    return count;
}

CASE(threads_that_end_leave_no_open_files) {
    startWithFonts();
    const char* document = writeLayout("page.xml", textOf(SHRINKING, 20));
    onThread(useFonts, (void*)document);
    const int before = openFiles();
    for (int i = 0; i < Threads; ++i) {
        onThread(useFonts, (void*)document);
    }
    CHECK_INT(before, openFiles());
}

CASE(a_handler_may_be_used_by_one_thread_after_the_other) {
    startWithFonts();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", textOf(SHRINKING, 20)));
    shrinkText(handler);
    const char* first = textOf("%s", pathOf("first.png"));
    CHECK_INT(0, xmlToImgCreateImage(handler, first));
    for (int i = 0; i < Threads; ++i) {
        onThread(shrinkText, handler);
        CHECK(sameContent(first, "shrunk.png"));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
