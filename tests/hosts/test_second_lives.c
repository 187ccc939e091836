/* The application is complete when the library says so, in each of its lives. The pause before each
 * positive answer would hide one that comes too early, so it takes no time here. */
#include "support/application.h"
#include "support/documents.h"
#include "support/harness.h"

#include <velnorxmltoimg.h>

#include <sched.h>
#include <unistd.h>

enum { Lives = 20 };

__attribute__((visibility("default"))) int usleep(useconds_t duration) {
    (void)duration;
    return 0;
}

static void* runApplication(void* unused) {
    xmlToImgInitializeQtNoReturn();
    return unused;
}

/* Fonts are what an incomplete application has not. */
static void liveOnce(void) {
    pthread_t starter;
    CHECK(pthread_create(&starter, NULL, runApplication, NULL) == 0);
    while (xmlToImgQtInitialized() == 0) {
        sched_yield();
    }
    CHECK_INT(0, xmlToImgFreeHandler(handlerOf(TICKET)));
    CHECK(endApplication(starter) == NULL);
}

CASE(no_life_of_the_application_is_announced_before_it_is_complete) {
    for (int life = 0; life < Lives; ++life) {
        liveOnce();
    }
}
