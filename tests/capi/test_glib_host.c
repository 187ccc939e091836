/* A host whose own thread runs a GLib main loop. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <glib.h>

enum { WantedTimeouts = 100 };

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
