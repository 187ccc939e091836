/* Hosts that fork. */
#include "support/documents.h"
#include "support/files.h"
#include "support/forking.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdlib.h>
#include <unistd.h>

enum { Forks = 200, Children = 5 };

static void inChild(void (*work)(void)) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(EXIT_SUCCESS);
    }
    checkChildSucceeds(child);
}

static void startAndDraw(void) {
    startLibrary();
    drawDocument(TICKET, "in-child.png");
}

CASE(a_child_forked_before_start_up_starts_up_itself) {
    for (int i = 0; i < Children; ++i) {
        inChild(startAndDraw);
        CHECK(exists("in-child.png"));
    }
    startLibrary();
    checkDraws(TICKET, "in-child.png");
}

static void checkIsInitialized(void) {
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
}

static void draw(void) {
    checkIsInitialized();
    drawDocument(TICKET, "in-child.png");
}

CASE(a_child_forked_while_no_thread_is_in_a_call_draws_the_same) {
    startLibrary();
    inChild(draw);
    checkDraws(TICKET, "in-child.png");
    for (int i = 0; i < Children; ++i) {
        inChild(draw);
        checkDraws(TICKET, "in-child.png");
    }
}

static void drawBitmap(void) {
    drawDocument(TICKET, "in-child.bmp");
}

CASE(a_child_draws_in_every_format_after_its_parent_did) {
    startLibrary();
    drawDocument(TICKET, "in-parent.bmp");
    inChild(drawBitmap);
    CHECK(sameContent("in-parent.bmp", "in-child.bmp"));
}

static void drawAndExit(void) {
    drawDocument(TICKET, "in-child.png");
    exit(EXIT_SUCCESS);
}

CASE(a_child_that_drew_may_leave_by_exit) {
    startLibrary();
    for (int i = 0; i < Children; ++i) {
        inChild(drawAndExit);
    }
    checkDraws(TICKET, "in-child.png");
}

static void* ofParent;

static void drawWithHandlerOfParent(void) {
    CHECK_INT(0, xmlToImgCreateImage(ofParent, pathOf("in-child.png")));
    CHECK_INT(0, xmlToImgFreeHandler(ofParent));
}

CASE(a_handler_of_the_parent_serves_both) {
    startLibrary();
    ofParent = handlerOf(TICKET);
    for (int i = 0; i < Children; ++i) {
        inChild(drawWithHandlerOfParent);
    }
    CHECK_INT(0, xmlToImgCreateImage(ofParent, pathOf("in-parent.png")));
    CHECK(sameContent("in-parent.png", "in-child.png"));
    CHECK_INT(0, xmlToImgFreeHandler(ofParent));
}

static void announceAgain(void) {
    xmlToImgInitializeQtNoReturn();
    draw();
}

CASE(a_start_up_call_in_the_child_returns_at_once) {
    startLibrary();
    inChild(announceAgain);
    checkDraws(TICKET, "in-child.png");
}

static void* drawOnThread(void* unused) {
    drawDocument(TICKET, "in-child.png");
    return unused;
}

static void drawOnNewThread(void) {
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, drawOnThread, NULL) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
}

CASE(a_child_draws_on_threads_of_its_own) {
    startLibrary();
    inChild(drawOnNewThread);
    checkDraws(TICKET, "in-child.png");
}

static void drawInGrandchild(void) {
    inChild(draw);
}

CASE(a_child_of_a_child_draws_the_same) {
    startLibrary();
    inChild(drawInGrandchild);
    checkDraws(TICKET, "in-child.png");
}

static void leaveOrExecute(int number) {
    if (number % 2 == 0) {
        execl("/bin/true", "true", (char*)NULL);
    }
    _exit(number % 2 == 0 ? EXIT_FAILURE : EXIT_SUCCESS);
}

CASE(a_child_forked_while_a_thread_draws_may_execute_a_program_or_leave) {
    startLibrary();
    forkWhileDrawing("in-parent.png", Forks, leaveOrExecute);
    checkDraws(TICKET, "in-parent.png");
}
