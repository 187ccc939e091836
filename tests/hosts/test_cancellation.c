/* Threads of the host that are cancelled inside the library: the call comes to its end first. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <stdatomic.h>

enum { Rounds = 20, TextSize = 256 };

typedef struct Work {
    void (*call)(void);
    int returned;
} Work;

static void* handler;
static const char* output;

static void create(void) {
    CHECK_INT(0, xmlToImgFreeHandler(handlerOf(TICKET)));
}

static void draw(void) {
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
}

static void validate(void) {
    char text[TextSize];
    xmlToImgCheckCorrect(handler, text, sizeof text);
}

static void applyMissingParameters(void) {
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, "/no/such/file.xml"));
}

static void readValue(void) {
    char text[TextSize];
    xmlToImgGetObjectTagDictionary(handler, "box.width", text, sizeof text);
}

static void listFonts(void) {
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
}

static void askForFont(void) {
    int bold = 0;
    int italic = 0;
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic));
}

static void addPlugInPath(void) {
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(NULL, 0));
}

static void announceAgain(void) {
    xmlToImgInitializeQtNoReturn();
}

/* A cancellation that waits already takes effect at the first opportunity. */
static void* callWhileCancelled(void* given) {
    Work* work = given;
    CHECK(pthread_cancel(pthread_self()) == 0);
    work->call();
    work->returned = 1;
    pthread_testcancel();
    return NULL;
}

static void checkIsCancelledAfter(void (*call)(void)) {
    Work work = {call, 0};
    pthread_t thread;
    void* result = NULL;
    CHECK(pthread_create(&thread, NULL, callWhileCancelled, &work) == 0);
    CHECK(pthread_join(thread, &result) == 0);
    CHECK(work.returned);
    CHECK(result == PTHREAD_CANCELED);
}

static void prepare(void) {
    startLibrary();
    handler = handlerOf(TICKET);
    output = pathOf("cancelled.png");
}

CASE(every_call_comes_to_its_end_before_a_waiting_cancellation) {
    /* The last one frees a handler, and with it the fonts of all. */
    void (*const calls[])(void) = {draw,          validate,      applyMissingParameters,
                                   readValue,     listFonts,     askForFont,
                                   addPlugInPath, announceAgain, create};
    prepare();
    for (size_t i = 0; i < sizeof calls / sizeof *calls; ++i) {
        checkIsCancelledAfter(calls[i]);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_thread_that_waits_for_its_cancellation_draws_a_whole_picture) {
    prepare();
    checkIsCancelledAfter(draw);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkDraws(TICKET, output);
}

static atomic_int drawn;

static void* drawForever(void* unused) {
    for (;;) {
        draw();
        atomic_fetch_add(&drawn, 1);
        pthread_testcancel();
    }
    return unused;
}

CASE(a_thread_may_be_cancelled_at_any_moment_of_drawing) {
    prepare();
    for (int round = 0; round < Rounds; ++round) {
        pthread_t thread;
        void* result = NULL;
        atomic_store(&drawn, 0);
        CHECK(pthread_create(&thread, NULL, drawForever, NULL) == 0);
        sleepMilliseconds(round % 20);
        CHECK(pthread_cancel(thread) == 0);
        CHECK(pthread_join(thread, &result) == 0);
        CHECK(result == PTHREAD_CANCELED);
        CHECK(atomic_load(&drawn) > 0);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkDraws(TICKET, output);
}

static void* startWhileCancelled(void* unused) {
    CHECK(pthread_cancel(pthread_self()) == 0);
    xmlToImgInitializeQtNoReturn();
    pthread_testcancel();
    return unused;
}

CASE(a_cancelled_thread_runs_the_application_until_that_quits) {
    pthread_t starter;
    CHECK(pthread_create(&starter, NULL, startWhileCancelled, NULL) == 0);
    waitForInitialized(1);
    drawDocument(TICKET, "first.png");
    CHECK(pthread_cancel(starter) == 0);
    checkDraws(TICKET, "first.png");
    CHECK(endApplication(starter) == PTHREAD_CANCELED);
    CHECK(endApplication(startApplication()) == NULL);
}

static void* pollWhileCancelled(void* unused) {
    CHECK(pthread_cancel(pthread_self()) == 0);
    CHECK_INT(1, xmlToImgQtInitialized());
    pthread_testcancel();
    return unused;
}

CASE(a_thread_that_asks_whether_the_library_is_up_may_be_cancelled) {
    prepare();
    pthread_t thread;
    void* result = NULL;
    CHECK(pthread_create(&thread, NULL, pollWhileCancelled, NULL) == 0);
    CHECK(pthread_join(thread, &result) == 0);
    CHECK(result == PTHREAD_CANCELED);
    draw();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void checkStateStays(int state) {
    int before = -1;
    CHECK(pthread_setcancelstate(state, &before) == 0);
    draw();
    listFonts();
    CHECK(pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &before) == 0);
    CHECK_INT(state, before);
}

CASE(calls_leave_the_cancellation_state_as_it_was) {
    prepare();
    checkStateStays(PTHREAD_CANCEL_DISABLE);
    checkStateStays(PTHREAD_CANCEL_ENABLE);
    int type = -1;
    CHECK(pthread_setcanceltype(PTHREAD_CANCEL_DEFERRED, &type) == 0);
    CHECK_INT(PTHREAD_CANCEL_DEFERRED, type);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
