/* Hosts in C that end the library's application and start it again. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <stdatomic.h>

enum { Lives = 50 };

CASE(fifty_lives_of_the_application_make_the_same_picture) {
    const char* first = NULL;
    for (int life = 0; life < Lives; ++life) {
        const pthread_t starter = startApplication();
        if (first == NULL) {
            first = drawDocument(TICKET, "first.png");
        }
        checkDraws(TICKET, first);
        CHECK(endApplication(starter) == NULL);
        CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    }
}

CASE(a_handler_is_of_use_in_every_life_of_the_application) {
    void* handler = handlerOf(TICKET);
    const char* blank = pathOf("blank.png");
    CHECK_INT(0, xmlToImgCreateImage(handler, blank));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    handler = NULL;
    for (int life = 0; life < Lives / 5; ++life) {
        const pthread_t starter = startApplication();
        handler = handler == NULL ? handlerOf(TICKET) : handler;
        const char* drawn = pathOf("drawn-in-life.png");
        CHECK_INT(0, xmlToImgCreateImage(handler, drawn));
        CHECK(!sameContent(blank, drawn));
        CHECK(endApplication(starter) == NULL);
        CHECK_INT(0, xmlToImgCreateImage(handler, drawn));
        CHECK(sameContent(blank, drawn));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void liveOnce(void) {
    const pthread_t starter = startApplication();
    drawDocument(TICKET, "life.png");
    CHECK(endApplication(starter) == NULL);
}

CASE(no_life_of_the_application_leaves_a_thread_or_an_open_file) {
    liveOnce();
    const int threads = countThreads();
    const char* files = openFiles();
    for (int life = 0; life < Lives / 5; ++life) {
        liveOnce();
        CHECK_INT(threads, countThreads());
        CHECK_TEXT(files, openFiles());
    }
}

static atomic_int livesAreOver;

static void* askAllTheTime(void* unused) {
    while (!atomic_load(&livesAreOver)) {
        const int answer = xmlToImgQtInitialized();
        CHECK(answer == 0 || answer == 1);
    }
    return unused;
}

CASE(the_application_may_come_and_go_while_a_thread_asks_for_it) {
    pthread_t asking;
    CHECK(pthread_create(&asking, NULL, askAllTheTime, NULL) == 0);
    for (int life = 0; life < Lives / 5; ++life) {
        CHECK(endApplication(startApplication()) == NULL);
    }
    atomic_store(&livesAreOver, 1);
    CHECK(pthread_join(asking, NULL) == 0);
}
