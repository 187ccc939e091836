/* Many threads that start the library, ask for it and use it at the first moment that they may. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/qt_symbols.h"

#include <velnorxmltoimg.h>

#include <stdatomic.h>

enum { Users = 6, Lives = 5 };

typedef struct User {
    pthread_t thread;
    const char* output;
    void* handler;
    int starts;
} User;

static User users[Users];
static atomic_int served;
static atomic_int isOver;

/* Nothing but the answer tells that what the starting thread has made is complete. */
static void* useWhenReady(void* given) {
    User* user = given;
    while (xmlToImgQtInitialized() == 0) {
        if (atomic_load(&isOver)) {
            return NULL;
        }
        if (user->starts) {
            xmlToImgInitializeQtNoReturn();
        }
    }
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    CHECK_INT(0, xmlToImgCreateImage(user->handler, user->output));
    atomic_fetch_add(&served, 1);
    return NULL;
}

static void begin(int theyStart) {
    atomic_store(&served, 0);
    for (int i = 0; i < Users; ++i) {
        users[i].output = pathOf(textOf("%d.png", i));
        users[i].handler = handlerOf(TICKET);
        users[i].starts = theyStart;
        CHECK(pthread_create(&users[i].thread, NULL, useWhenReady, &users[i]) == 0);
    }
}

static void waitForServed(int wanted) {
    while (atomic_load(&served) < wanted) {
        sleepMilliseconds(1);
    }
}

static void end(void) {
    for (int i = 0; i < Users; ++i) {
        CHECK(pthread_join(users[i].thread, NULL) == 0);
        CHECK_INT(0, xmlToImgFreeHandler(users[i].handler));
    }
}

CASE(of_threads_that_start_all_but_one_draw_as_soon_as_the_library_is_up) {
    begin(1);
    waitForServed(Users - 1);
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(Users - 1, atomic_load(&served));
    atomic_store(&isOver, 1);
    quitApplication();
    end();
    CHECK_INT(0, xmlToImgQtInitialized());
}

CASE(threads_that_ask_draw_as_soon_as_the_library_is_up_in_each_of_its_lives) {
    for (int life = 0; life < Lives; ++life) {
        begin(0);
        const pthread_t starter = startApplication();
        waitForServed(Users);
        end();
        CHECK(endApplication(starter) == NULL);
    }
}

static void* useWhenMade(void* given) {
    User* user = given;
    while (__atomic_load_n(&VelnorQtStartedAsNonGuiApp, __ATOMIC_ACQUIRE) == 0) {
    }
    user->handler = handlerOf(TICKET);
    CHECK_INT(0, xmlToImgCreateImage(user->handler, user->output));
    CHECK_INT(0, xmlToImgFreeHandler(user->handler));
    return NULL;
}

CASE(a_thread_may_draw_once_the_application_is_said_to_be_made) {
    User user = {.output = pathOf("early.png")};
    CHECK(pthread_create(&user.thread, NULL, useWhenMade, &user) == 0);
    const pthread_t starter = startApplication();
    CHECK(pthread_join(user.thread, NULL) == 0);
    drawDocument(TICKET, "late.png");
    CHECK(sameContent("early.png", "late.png"));
    CHECK(endApplication(starter) == NULL);
}
