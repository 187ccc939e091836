/* Threads of the host that end in unusual ways or on little stack. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <stdlib.h>

enum { Threads = 10, Pictures = 10 };

static void* handler;
static const char* output;

static void draw(void) {
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
}

static void prepare(void) {
    startLibrary();
    handler = handlerOf(TICKET);
    output = pathOf("drawn.png");
    draw();
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("expected.png")));
}

static void run(void* (*work)(void*)) {
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, work, NULL) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
}

static void* drawAndExit(void* unused) {
    (void)unused;
    draw();
    pthread_exit(NULL);
}

CASE(a_thread_may_exit_right_after_a_call) {
    prepare();
    const char* files = openFiles();
    for (int i = 0; i < Threads; ++i) {
        run(drawAndExit);
        CHECK(sameContent("expected.png", output));
    }
    CHECK_TEXT(files, openFiles());
}

static pthread_key_t key;

static void drawAtEnd(void* value) {
    (void)value;
    draw();
}

static void* endWithoutCall(void* unused) {
    CHECK(pthread_setspecific(key, &key) == 0);
    return unused;
}

static void* endAfterCall(void* unused) {
    draw();
    CHECK(pthread_setspecific(key, &key) == 0);
    return unused;
}

CASE(data_of_a_thread_may_draw_when_it_is_destroyed) {
    prepare();
    CHECK(pthread_key_create(&key, drawAtEnd) == 0);
    const char* files = openFiles();
    for (int i = 0; i < Threads; ++i) {
        remove(output);
        run(i % 2 == 0 ? endWithoutCall : endAfterCall);
        CHECK(sameContent("expected.png", output));
    }
    CHECK_TEXT(files, openFiles());
}

static pthread_t application;

static void* drawAfterMain(void* main) {
    CHECK(pthread_join(*(pthread_t*)main, NULL) == 0);
    for (int i = 0; i < Pictures; ++i) {
        draw();
        CHECK(sameContent("expected.png", output));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(endApplication(application) == NULL);
    return NULL;
}

/* The process ends with its last thread. */
CASE(the_first_thread_may_exit_while_others_draw) {
    static pthread_t first;
    first = pthread_self();
    application = startApplication();
    handler = handlerOf(TICKET);
    output = pathOf("drawn.png");
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("expected.png")));
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, drawAfterMain, &first) == 0);
    CHECK(pthread_detach(thread) == 0);
    pthread_exit(NULL);
}

static void* makeAndLeave(void* unused) {
    handler = handlerOf(TICKET);
    return unused;
}

CASE(a_handler_outlives_the_thread_that_made_it) {
    startLibrary();
    run(makeAndLeave);
    output = pathOf("drawn.png");
    draw();
    CHECK(exists(output));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
