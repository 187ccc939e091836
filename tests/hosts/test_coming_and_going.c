/* The application comes and goes while threads draw all the time. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { Drawers = 4, Lives = 10, Variants = 3 };

typedef struct Drawer {
    pthread_t thread;
    void* handler;
    const char* output;
    int strange;
    atomic_int drawn;
} Drawer;

static Drawer drawers[Drawers];
static Content variants[Variants];
static atomic_int isOver;

static Content drawnNow(void* handler) {
    const char* output = pathOf("variant.png");
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
    return readFile(output);
}

/* Texts need an application, and their fonts the one in which the handler was made. */
static void drawVariants(void* handler) {
    pthread_t starter = startApplication();
    variants[0] = drawnNow(handler);
    CHECK(endApplication(starter) == NULL);
    variants[1] = drawnNow(handler);
    starter = startApplication();
    variants[2] = drawnNow(handler);
    CHECK(endApplication(starter) == NULL);
}

static int isVariant(const unsigned char* bytes, size_t size) {
    int found = 0;
    for (int i = 0; i < Variants; ++i) {
        found |= variants[i].size == size && memcmp(variants[i].bytes, bytes, size) == 0;
    }
    return found;
}

static int holdsVariant(const char* path) {
    FILE* file = fopen(path, "rb");
    CHECK(file != NULL && fseek(file, 0, SEEK_END) == 0);
    const size_t size = (size_t)ftell(file);
    unsigned char* bytes = malloc(size);
    rewind(file);
    const int found =
        bytes != NULL && fread(bytes, 1, size, file) == size && isVariant(bytes, size);
    free(bytes);
    CHECK(fclose(file) == 0);
    return found;
}

static void* drawUntilOver(void* given) {
    Drawer* drawer = given;
    while (!atomic_load(&isOver)) {
        CHECK_INT(0, xmlToImgCreateImage(drawer->handler, drawer->output));
        drawer->strange += !holdsVariant(drawer->output);
        atomic_fetch_add(&drawer->drawn, 1);
    }
    return NULL;
}

static void beginDrawing(void) {
    for (int i = 0; i < Drawers; ++i) {
        drawers[i].output = pathOf(textOf("%d.png", i));
        drawers[i].handler = handlerOf(TICKET);
        CHECK(pthread_create(&drawers[i].thread, NULL, drawUntilOver, &drawers[i]) == 0);
    }
}

static void waitUntilEachDraws(void) {
    for (int i = 0; i < Drawers; ++i) {
        const int before = atomic_load(&drawers[i].drawn);
        while (atomic_load(&drawers[i].drawn) == before) {
            sleepMilliseconds(1);
        }
    }
}

static void endDrawing(void) {
    atomic_store(&isOver, 1);
    for (int i = 0; i < Drawers; ++i) {
        CHECK(pthread_join(drawers[i].thread, NULL) == 0);
        CHECK_INT(0, drawers[i].strange);
        CHECK_INT(0, xmlToImgFreeHandler(drawers[i].handler));
    }
}

CASE(the_application_comes_and_goes_while_threads_draw_whole_pictures) {
    captureOutput();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    void* handler = handlerOf(TICKET);
    drawVariants(handler);
    beginDrawing();
    for (int life = 0; life < Lives; ++life) {
        waitUntilEachDraws();
        const pthread_t starter = startApplication();
        waitUntilEachDraws();
        CHECK(endApplication(starter) == NULL);
    }
    endDrawing();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}
