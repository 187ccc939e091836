/* Threads that draw at the same time, each with handlers of its own. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { Threads = 4, Images = VELNOR_PARALLEL_IMAGES, Samples = 20 };

typedef struct Sample {
    const char* document;
    Content expected;
} Sample;

/* Everything that a thread uses, and no other thread does. */
typedef struct Worker {
    pthread_t thread;
    const Sample* samples;
    void* handlers[Samples];
    const char* output;
    int drawn;
    int different;
} Worker;

/* One of every kind of item, small, so that many can be drawn. */
static const char* const Patterns[] = {"text/rotation_*", "shapes/line_*", "barcodes/rotation_*",
                                       "images/rotation_*", "grid/*"};
enum { PatternCount = sizeof Patterns / sizeof *Patterns };

static Sample* drawSamples(void) {
    Sample* samples = caseMemory(Samples * sizeof *samples);
    for (size_t i = 0; i < Samples; ++i) {
        const Documents documents = goldenDocuments(Patterns[i % PatternCount]);
        samples[i].document = documents.paths[i / PatternCount % documents.count];
        samples[i].expected = readFile(drawDocument(samples[i].document, "expected.png"));
    }
    return samples;
}

static int holds(const char* path, Content expected) {
    FILE* file = fopen(path, "rb");
    unsigned char* bytes = malloc(expected.size + 1);
    const size_t size =
        file != NULL && bytes != NULL ? fread(bytes, 1, expected.size + 1, file) : 0;
    const int same = size == expected.size && memcmp(bytes, expected.bytes, size) == 0;
    free(bytes);
    return file != NULL && fclose(file) == 0 && same;
}

static void* drawShare(void* given) {
    Worker* worker = given;
    for (int i = 0; i < Images / Threads; ++i) {
        const int chosen = i % Samples;
        remove(worker->output);
        CHECK_INT(0, xmlToImgCreateImage(worker->handlers[chosen], worker->output));
        worker->different += !holds(worker->output, worker->samples[chosen].expected);
        ++worker->drawn;
    }
    return NULL;
}

static void prepareWorker(Worker* worker, int number, const Sample* samples) {
    worker->samples = samples;
    worker->output = pathOf(textOf("%d.png", number));
    for (int i = 0; i < Samples; ++i) {
        worker->handlers[i] = handlerOf(samples[i].document);
    }
}

/* With handlers of their own, whose fonts are kept. */
static void prepareWorkers(Worker workers[Threads]) {
    startLibrary();
    const Sample* samples = drawSamples();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    for (int i = 0; i < Threads; ++i) {
        prepareWorker(&workers[i], i, samples);
    }
}

CASE(images_drawn_by_four_threads_are_those_of_one) {
    static Worker workers[Threads];
    prepareWorkers(workers);
    for (int i = 0; i < Threads; ++i) {
        CHECK(pthread_create(&workers[i].thread, NULL, drawShare, &workers[i]) == 0);
    }
    int drawn = 0;
    for (int i = 0; i < Threads; ++i) {
        CHECK(pthread_join(workers[i].thread, NULL) == 0);
        CHECK_INT(0, workers[i].different);
        drawn += workers[i].drawn;
        for (int j = 0; j < Samples; ++j) {
            CHECK_INT(0, xmlToImgFreeHandler(workers[i].handlers[j]));
        }
    }
    CHECK_INT(Images, drawn);
}

/* The host's own lock: handlers come and go while no thread draws. */
static pthread_rwlock_t drawing = PTHREAD_RWLOCK_INITIALIZER;
static atomic_int failures;

static void lock(int (*take)(pthread_rwlock_t*)) {
    CHECK(take(&drawing) == 0);
}

static void* liveAsHandler(void* given) {
    Worker* worker = given;
    for (int i = 0; i < Images / Threads / Samples; ++i) {
        lock(pthread_rwlock_wrlock);
        void* handler = handlerOf(worker->samples[0].document);
        lock(pthread_rwlock_unlock);
        lock(pthread_rwlock_rdlock);
        CHECK_INT(0, xmlToImgCreateImage(handler, worker->output));
        atomic_fetch_add(&failures, !holds(worker->output, worker->samples[0].expected));
        lock(pthread_rwlock_unlock);
        lock(pthread_rwlock_wrlock);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
        lock(pthread_rwlock_unlock);
    }
    return NULL;
}

CASE(handlers_register_their_fonts_on_several_threads_one_after_the_other) {
    static Worker workers[Threads];
    startLibrary();
    const Sample* samples = drawSamples();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    for (int i = 0; i < Threads; ++i) {
        workers[i].samples = samples;
        workers[i].output = pathOf(textOf("%d.png", i));
        CHECK(pthread_create(&workers[i].thread, NULL, liveAsHandler, &workers[i]) == 0);
    }
    for (int i = 0; i < Threads; ++i) {
        CHECK(pthread_join(workers[i].thread, NULL) == 0);
    }
    CHECK_INT(0, atomic_load(&failures));
}

/* Reads, sets and checks: everything that does not draw. */
static void* useDictionaries(void* given) {
    const Worker* worker = given;
    char text[64];
    int settings[3];
    for (int i = 0; i < Images / Threads; ++i) {
        void* handler = worker->handlers[i % Samples];
        CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
        CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "no-such.text", "value"));
        xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, sizeof text);
        xmlToImgCheckCorrect(handler, text, sizeof text);
        CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
        xmlToImgGetFontProperty(handler, "Liberation Sans", &settings[0], &settings[1]);
        xmlToImgFreeFontList(xmlToImgAvailableFontList());
        CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
        CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    }
    return NULL;
}

CASE(some_threads_ask_while_others_draw) {
    static Worker workers[Threads];
    prepareWorkers(workers);
    for (int i = 0; i < Threads; ++i) {
        void* (*work)(void*) = i % 2 == 0 ? useDictionaries : drawShare;
        CHECK(pthread_create(&workers[i].thread, NULL, work, &workers[i]) == 0);
    }
    for (int i = 0; i < Threads; ++i) {
        CHECK(pthread_join(workers[i].thread, NULL) == 0);
        CHECK_INT(0, workers[i].different);
    }
}
