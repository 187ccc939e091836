/* Processes that end by exit while threads draw. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <signal.h>
#include <stdatomic.h>
#include <stdlib.h>
#include <unistd.h>

enum { Rounds = 10, Drawers = 3 };

static const char* document;
static const char* output;
static atomic_int isDrawing;

static void* drawOnce(void* unused) {
    (void)unused;
    void* handler = xmlToImgCreateHandler(document);
    atomic_fetch_add(&isDrawing, 1);
    xmlToImgCreateImage(handler, output);
    return NULL;
}

/* Calls fail as soon as the process ends. */
static void* drawUntilRefused(void* unused) {
    const char* ticket = pathOf(textOf("ticket-%p.png", (void*)&unused));
    void* handler = xmlToImgCreateHandler(TICKET);
    while (xmlToImgCreateImage(handler, ticket) == 0) {
        atomic_fetch_add(&isDrawing, 1);
    }
    return NULL;
}

static void startThread(void* (*work)(void*)) {
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, work, NULL) == 0);
    CHECK(pthread_detach(thread) == 0);
}

static void waitForDrawings(int count) {
    while (atomic_load(&isDrawing) < count) {
        sleepMilliseconds(1);
    }
}

/* A child ends by itself while the parent looks on. */
static void checkChildEndsWell(void (*child)(void)) {
    const pid_t process = fork();
    if (process == 0) {
        child();
        _exit(EXIT_FAILURE);
    }
    CHECK(process > 0);
    checkChildSucceeds(process);
}

static void exitWhileOneDraws(void) {
    startLibrary();
    startThread(drawOnce);
    waitForDrawings(1);
    sleepMilliseconds(10);
    exit(EXIT_SUCCESS);
}

/* Takes long: many boxes on a large canvas, in a format of many bytes. */
static const char* writeLargeLayout(void) {
    const char* items = CANVAS_OF(3000, 3000);
    for (int i = 0; i < 50; ++i) {
        items = textOf("%s<VelnorItem class='ellipse'><width>2990</width><height>%d</height>"
                       "<thickness>9</thickness></VelnorItem>",
                       items, 50 * i + 10);
    }
    return writeLayout("large.xml", items);
}

CASE(exit_waits_for_the_drawing_that_is_in_flight) {
    int complete = 0;
    document = writeLargeLayout();
    output = pathOf("large.png");
    for (int i = 0; i < Rounds; ++i) {
        checkChildEndsWell(exitWhileOneDraws);
        /* The thread may have come too late, and found the process ending. */
        complete += exists("large.png");
        CHECK(!exists("large.png") || pngWidth("large.png") == 3000);
        removeTree(output);
    }
    CHECK(complete > 0);
}

static void exitWhileManyDraw(void) {
    startLibrary();
    for (int i = 0; i < Drawers; ++i) {
        startThread(drawUntilRefused);
    }
    waitForDrawings(Drawers);
    exit(EXIT_SUCCESS);
}

CASE(exit_ends_a_process_whose_threads_draw_without_a_pause) {
    for (int i = 0; i < Rounds; ++i) {
        checkChildEndsWell(exitWhileManyDraw);
    }
}

static void endProcess(int number) {
    (void)number;
    exit(EXIT_SUCCESS);
}

static void exitBySignal(void) {
    CHECK(signal(SIGTERM, endProcess) != SIG_ERR);
    startLibrary();
    for (int i = 0; i < Drawers; ++i) {
        startThread(drawUntilRefused);
    }
    waitForDrawings(Drawers);
    CHECK(pthread_kill(pthread_self(), SIGTERM) == 0);
}

CASE(a_signal_handler_of_the_first_thread_may_exit_while_others_draw) {
    for (int i = 0; i < Rounds; ++i) {
        checkChildEndsWell(exitBySignal);
    }
}

static void* oldHandler;

static void checkCallsAreRefused(void) {
    int number = 0;
    CHECK(xmlToImgCreateHandler(document) == NULL);
    CHECK_INT(-1, xmlToImgCreateImage(oldHandler, pathOf("late.png")));
    CHECK_INT(-1, xmlToImgGetPrinterSettings(oldHandler, &number, &number, &number));
    CHECK_INT(-1, xmlToImgFreeHandler(oldHandler));
    CHECK(xmlToImgAvailableFontList() == NULL);
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK(!exists("late.png"));
}

/* It was registered before the library's own, so that it runs after that. */
CASE(calls_of_late_exit_handlers_are_refused) {
    CHECK(atexit(checkCallsAreRefused) == 0);
    startLibrary();
    document = writeLayout("page.xml", CANVAS_OF(200, 100) BOX);
    oldHandler = xmlToImgCreateHandler(document);
    CHECK_INT(200, drawnWidth(oldHandler));
}
