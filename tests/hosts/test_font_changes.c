/* Handlers that come and go on one thread while others draw: every text in the fonts of its own layout. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <semaphore.h>
#include <stdatomic.h>
#include <string.h>

enum { Jobs = 12, Drawers = 3, Handlers = 300 };

#define TEXT_IN(family)                                                                            \
    CANVAS_OF(300, 80)                                                                             \
    "<VelnorItem class='text'><x>5</x><y>5</y><width>290</width><height>70</height>"               \
    "<fontname>" family "</fontname><fontsize>14</fontsize><text>iiiWWW 4711</text></VelnorItem>"

/* A thread that draws one handler's document whenever it is asked to, as a worker of a pool does. */
typedef struct Drawer {
    pthread_t thread;
    sem_t asked;
    sem_t done;
    void* handler; /* null ends the thread */
    const char* output;
} Drawer;

static void* drawOnRequest(void* given) {
    Drawer* drawer = given;
    for (;;) {
        CHECK(sem_wait(&drawer->asked) == 0);
        if (drawer->handler == NULL) {
            return NULL;
        }
        CHECK_INT(0, xmlToImgCreateImage(drawer->handler, drawer->output));
        CHECK(sem_post(&drawer->done) == 0);
    }
}

static void startDrawer(Drawer* drawer) {
    CHECK(sem_init(&drawer->asked, 0, 0) == 0 && sem_init(&drawer->done, 0, 0) == 0);
    CHECK(pthread_create(&drawer->thread, NULL, drawOnRequest, drawer) == 0);
}

static const char* drawOn(Drawer* drawer, void* handler, const char* output) {
    drawer->handler = handler;
    drawer->output = pathOf(output);
    CHECK(sem_post(&drawer->asked) == 0);
    CHECK(sem_wait(&drawer->done) == 0);
    return output;
}

static void endDrawer(Drawer* drawer) {
    drawer->handler = NULL;
    CHECK(sem_post(&drawer->asked) == 0);
    CHECK(pthread_join(drawer->thread, NULL) == 0);
}

/* On a thread that ends, and so knows of no fonts but those that are registered now. */
static void drawOnce(const char* document, const char* output) {
    Drawer drawer;
    void* handler = xmlToImgCreateHandler(document);
    startDrawer(&drawer);
    drawOn(&drawer, handler, output);
    endDrawer(&drawer);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* Two layouts, each with a font of its own beside it. */
static const char* documents[2];
static const char* const expected[2] = {"narrow-expected.png", "wide-expected.png"};

static void startWithTwoLayouts(void) {
    startLibrary();
    makeFolder("narrow");
    makeFolder("narrow/fonts");
    makeFolder("wide");
    makeFolder("wide/fonts");
    writeFont("narrow/fonts/font.ttf", SANS, "Alphafonts");
    writeFont("wide/fonts/font.ttf", MONO, "Gammafonts");
    documents[0] = writeLayout("narrow/page.xml", TEXT_IN("Alphafonts Sans"));
    documents[1] = writeLayout("wide/page.xml", TEXT_IN("Gammafonts Mono"));
    for (int i = 0; i < 2; ++i) {
        drawOnce(documents[i], expected[i]);
    }
    CHECK(!sameContent(expected[0], expected[1]));
}

/* One handler per job, created and freed here, drawn there. */
static void drawJobs(Drawer* drawers, int drawerCount) {
    for (int job = 0; job < Jobs; ++job) {
        const int layout = job % 2;
        void* handler = xmlToImgCreateHandler(documents[layout]);
        for (int i = 0; i < drawerCount; ++i) {
            CHECK(sameContent(expected[layout], drawOn(&drawers[i], handler, "job.png")));
        }
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

static void drawJobsOnDrawers(void) {
    static Drawer drawers[Drawers];
    for (int i = 0; i < Drawers; ++i) {
        startDrawer(&drawers[i]);
    }
    drawJobs(drawers, 1);
    drawJobs(drawers, Drawers);
    for (int i = 0; i < Drawers; ++i) {
        endDrawer(&drawers[i]);
    }
}

CASE(threads_draw_in_the_fonts_of_the_handler_that_another_thread_has_just_created) {
    startWithTwoLayouts();
    drawJobsOnDrawers();
}

CASE(threads_draw_in_kept_fonts_that_another_thread_registered) {
    startWithTwoLayouts();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    drawJobsOnDrawers();
}

CASE(a_family_that_a_thread_drew_before_it_was_registered_is_found) {
    Drawer drawer;
    startWithTwoLayouts();
    startDrawer(&drawer);
    void* fontless = xmlToImgCreateHandlerWithDirs(documents[0], NULL, pathOf("no-such-folder"));
    CHECK(!sameContent(expected[0], drawOn(&drawer, fontless, "substituted.png")));
    void* handler = xmlToImgCreateHandler(documents[0]);
    CHECK(sameContent(expected[0], drawOn(&drawer, fontless, "found.png")));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("substituted.png", drawOn(&drawer, fontless, "gone.png")));
    endDrawer(&drawer);
    CHECK_INT(0, xmlToImgFreeHandler(fontless));
}

/* Handlers come and go on all threads at once, each with drawings of its own between. */
typedef struct Visitor {
    pthread_t thread;
    int layout;
    int handlers;
    const char* output;
    int wrong;
} Visitor;

static void* comeDrawAndGo(void* given) {
    Visitor* visitor = given;
    for (int i = 0; i < visitor->handlers; ++i) {
        void* handler = xmlToImgCreateHandler(documents[visitor->layout]);
        CHECK(handler != NULL);
        CHECK_INT(0, xmlToImgCreateImage(handler, visitor->output));
        visitor->wrong += !sameContent(expected[visitor->layout], visitor->output);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
    return NULL;
}

static int wrongPicturesOf(int visitorCount, int handlers) {
    static Visitor visitors[Drawers + 1];
    int wrong = 0;
    for (int i = 0; i < visitorCount; ++i) {
        visitors[i] =
            (Visitor){.layout = i % 2, .handlers = handlers, .output = pathOf(textOf("%d.png", i))};
        CHECK(pthread_create(&visitors[i].thread, NULL, comeDrawAndGo, &visitors[i]) == 0);
    }
    for (int i = 0; i < visitorCount; ++i) {
        CHECK(pthread_join(visitors[i].thread, NULL) == 0);
        wrong += visitors[i].wrong;
    }
    return wrong;
}

/* Kept, but every other creation forgets the file of the other folder, which stays registered. */
CASE(handlers_come_and_go_on_four_threads_and_kept_fonts_stay_right) {
    startWithTwoLayouts();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    CHECK_INT(0, wrongPicturesOf(Drawers + 1, Handlers / 3));
}

/* Each freeing takes the fonts from all, so that a text may be drawn in a substitute; nothing worse. */
CASE(handlers_come_and_go_on_four_threads_without_kept_fonts) {
    startWithTwoLayouts();
    wrongPicturesOf(Drawers + 1, Handlers);
    CHECK_INT(0, wrongPicturesOf(1, 1));
}

static atomic_int drawing;

static void* createAndFree(void* unused) {
    (void)unused;
    while (atomic_load(&drawing)) {
        CHECK_INT(0, xmlToImgFreeHandler(xmlToImgCreateHandler(documents[1])));
    }
    return NULL;
}

/* Drawing it takes long enough for another thread to free handlers meanwhile. */
static const char* writeManyTexts(const char* name) {
    const char* items = CANVAS_OF(300, 800);
    for (int i = 0; i < 40; ++i) {
        items = textOf("%s<VelnorItem class='text'><y>%d</y><fontname>Alphafonts Sans</fontname>"
                       "<fontsize>%d</fontsize><text>iiiWWW %d</text></VelnorItem>",
                       items, i * 20, 5 + i % 7, i);
    }
    return writeLayout(name, items);
}

/* What the document may look like: with its own font, with none, in the font of the other layout. */
static const char* const appearances[] = {"own.png", "none.png", "other.png"};
enum { Appearances = sizeof appearances / sizeof *appearances };

static void drawAppearances(const char* document) {
    drawOnce(document, appearances[0]);
    void* fontless = xmlToImgCreateHandlerWithDirs(document, NULL, pathOf("no-such-folder"));
    CHECK_INT(0, xmlToImgCreateImage(fontless, pathOf(appearances[1])));
    void* other = xmlToImgCreateHandler(documents[1]);
    CHECK_INT(0, xmlToImgCreateImage(fontless, pathOf(appearances[2])));
    CHECK_INT(0, xmlToImgFreeHandler(other));
    CHECK_INT(0, xmlToImgFreeHandler(fontless));
}

static int isOneOfThem(const char* picture) {
    int same = 0;
    for (int i = 0; i < Appearances; ++i) {
        same += sameContent(appearances[i], picture);
    }
    return same == 1;
}

/* The fonts that a call finds are there until it ends. */
CASE(a_drawing_keeps_its_fonts_while_another_thread_frees_handlers) {
    pthread_t thread;
    startWithTwoLayouts();
    const char* document = writeManyTexts("narrow/many.xml");
    drawAppearances(document);
    atomic_store(&drawing, 1);
    CHECK(pthread_create(&thread, NULL, createAndFree, NULL) == 0);
    for (int i = 0; i < Handlers / 3; ++i) {
        void* handler = xmlToImgCreateHandler(document);
        CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("drawn.png")));
        CHECK(isOneOfThem("drawn.png"));
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
    atomic_store(&drawing, 0);
    CHECK(pthread_join(thread, NULL) == 0);
}
