/* The states of the library's application, as a host without Qt sees them. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

enum { Starters = 8, ExitRuns = 100 };

static atomic_int returnedStarters;

CASE(before_start_up_the_library_is_not_initialized) {
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
}

CASE(after_start_up_the_library_is_initialized) {
    startLibrary();
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(1, xmlToImgQtInitialized());
}

CASE(start_up_without_an_application_tells_that_the_library_made_it) {
    startLibrary();
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
}

CASE(a_second_start_up_call_returns_while_the_application_runs) {
    startLibrary();
    xmlToImgInitializeQtNoReturn();
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
}

static void* startOnce(void* unused) {
    (void)unused;
    xmlToImgInitializeQtNoReturn();
    atomic_fetch_add(&returnedStarters, 1);
    return NULL;
}

CASE(of_simultaneous_start_up_calls_all_but_one_return) {
    for (int i = 0; i < Starters; ++i) {
        pthread_t thread;
        CHECK(pthread_create(&thread, NULL, startOnce, NULL) == 0);
        CHECK(pthread_detach(thread) == 0);
    }
    waitForInitialized(1);
    while (atomic_load(&returnedStarters) < Starters - 1) {
        sleepMilliseconds(1);
    }
    CHECK(exists(renderLayout("box", CANVAS_OF(200, 100) BOX)));
    CHECK_INT(Starters - 1, atomic_load(&returnedStarters));
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
}

CASE(asking_before_start_up_does_not_hinder_it) {
    for (int i = 0; i < 1000; ++i) {
        CHECK_INT(0, xmlToImgQtInitialized());
    }
    startLibrary();
    CHECK(exists(renderLayout("box", CANVAS_OF(200, 100) BOX)));
}

CASE(the_plug_in_path_takes_any_directory) {
    startLibrary();
    const unsigned short* folder = wideOf(makeFolder("plug-ins"));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(folder, UpToZero));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(folder, wideLength(folder)));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(wideOf("/no/such/folder"), UpToZero));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(wideOf(""), UpToZero));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(NULL, UpToZero));
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(NULL, 7));
    CHECK(exists(renderLayout("box", CANVAS_OF(200, 100) BOX)));
}

static void* useAndStart(void* document) {
    render(document, "before.png");
    xmlToImgInitializeQtNoReturn();
    return NULL;
}

CASE(a_thread_that_used_the_library_can_start_it_in_silence) {
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    captureOutput();
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, useAndStart, (void*)document) == 0);
    CHECK(pthread_detach(thread) == 0);
    waitForInitialized(1);
    render(document, "after.png");
    checkSilent();
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    CHECK(exists("after.png"));
}

CASE(another_thread_can_start_the_library_in_silence_after_the_first_calls) {
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    captureOutput();
    render(document, "before.png");
    startLibrary();
    render(document, "after.png");
    checkSilent();
    CHECK(exists("after.png"));
}

static void* drawOnce(void* document) {
    render(document, "by-thread.png");
    return NULL;
}

CASE(a_thread_that_did_not_start_the_library_can_draw) {
    startLibrary();
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, drawOnce, (void*)document) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
    render(document, "by-main.png");
    CHECK(sameContent("by-thread.png", "by-main.png"));
}

CASE(main_may_return_while_the_event_loop_runs) {
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    const char* output = pathOf("all.png");
    for (int i = 0; i < ExitRuns; ++i) {
        CHECK_INT(0, runSmallHost(document, output));
    }
    CHECK_INT(200, pngWidth(output));
}
