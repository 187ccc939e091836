/* A host whose own thread runs a GLib main loop. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <glib.h>
#include <pthread.h>

enum { WantedTimeouts = 100, WantedIdleCalls = 500, WantedPictures = 20 };

static GThread* hostThread;
static GMainLoop* hostLoop;
static int timeouts;
static int foreignTimeouts;

static gboolean countTimeout(gpointer unused) {
    (void)unused;
    foreignTimeouts += g_thread_self() != hostThread;
    if (++timeouts == WantedTimeouts) {
        g_main_loop_quit(hostLoop);
    }
    return timeouts < WantedTimeouts;
}

static void runHostLoop(void) {
    hostThread = g_thread_self();
    hostLoop = g_main_loop_new(NULL, FALSE);
    g_timeout_add(1, countTimeout, NULL);
    g_main_loop_run(hostLoop);
    g_main_loop_unref(hostLoop);
}

CASE(timeouts_of_the_host_run_on_its_own_thread) {
    startLibrary();
    runHostLoop();
    CHECK_INT(WantedTimeouts, timeouts);
    CHECK_INT(0, foreignTimeouts);
}

CASE(timeouts_run_on_the_thread_of_a_host_that_called_the_library_before_start_up) {
    renderLayout("before", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    startLibrary();
    runHostLoop();
    CHECK_INT(WantedTimeouts, timeouts);
    CHECK_INT(0, foreignTimeouts);
}

CASE(timeouts_wait_until_the_host_runs_its_loop) {
    startLibrary();
    g_timeout_add(0, countTimeout, NULL);
    CHECK(exists(renderLayout("all", CANVAS_OF(200, 100) BOX QR_CODE LABEL)));
    sleepMilliseconds(50);
    CHECK_INT(0, timeouts);
}

static gboolean drawInLoop(gpointer unused) {
    (void)unused;
    renderLayout("in-loop", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    g_main_loop_quit(hostLoop);
    return FALSE;
}

CASE(a_callback_of_the_host_loop_can_draw) {
    startLibrary();
    hostLoop = g_main_loop_new(NULL, FALSE);
    g_idle_add(drawInLoop, NULL);
    g_main_loop_run(hostLoop);
    g_main_loop_unref(hostLoop);
    CHECK(exists("in-loop.png"));
}

CASE(the_host_can_take_its_default_context_while_the_library_runs) {
    startLibrary();
    CHECK(g_main_context_acquire(NULL));
    g_main_context_release(NULL);
}

static int idleCalls;
static int foreignIdleCalls;
static gint picturesDrawn;

static void quitWhenEverythingHappened(void) {
    if (timeouts == WantedTimeouts && idleCalls == WantedIdleCalls &&
        g_atomic_int_get(&picturesDrawn) == WantedPictures) {
        g_main_loop_quit(hostLoop);
    }
}

static gboolean countTimeoutAmongOthers(gpointer unused) {
    (void)unused;
    foreignTimeouts += g_thread_self() != hostThread;
    timeouts += timeouts < WantedTimeouts;
    quitWhenEverythingHappened();
    return TRUE;
}

static gboolean countIdleCall(gpointer unused) {
    (void)unused;
    foreignIdleCalls += g_thread_self() != hostThread;
    ++idleCalls;
    return idleCalls < WantedIdleCalls;
}

static void* drawPictures(void* document) {
    while (g_atomic_int_get(&picturesDrawn) < WantedPictures) {
        render(document, "by-thread.png");
        g_atomic_int_inc(&picturesDrawn);
    }
    return NULL;
}

CASE(sources_of_the_host_run_on_its_thread_while_others_start_up_and_draw) {
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    pthread_t drawing;
    hostThread = g_thread_self();
    hostLoop = g_main_loop_new(NULL, FALSE);
    g_timeout_add(1, countTimeoutAmongOthers, NULL);
    g_idle_add(countIdleCall, NULL);
    startLibrary();
    CHECK(pthread_create(&drawing, NULL, drawPictures, (void*)document) == 0);
    g_main_loop_run(hostLoop);
    CHECK(pthread_join(drawing, NULL) == 0);
    g_main_loop_unref(hostLoop);
    CHECK_INT(WantedTimeouts, timeouts);
    CHECK_INT(WantedIdleCalls, idleCalls);
    CHECK_INT(0, foreignTimeouts);
    CHECK_INT(0, foreignIdleCalls);
    CHECK_INT(WantedPictures, g_atomic_int_get(&picturesDrawn));
}
