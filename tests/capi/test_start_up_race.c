/* The pause before each positive answer, and start-up calls that overlap. The pause would hide an
 * answer that comes too early, so that the library is given a pause of no time here. */
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>
#include <stddef.h>
#include <unistd.h>

enum { Starters = 8 };

static atomic_int readyStarters;
static atomic_int pauses;
static atomic_int lastPause; /* in microseconds */

__attribute__((visibility("default"))) int usleep(useconds_t duration) {
    atomic_store(&lastPause, (int)duration);
    atomic_fetch_add(&pauses, 1);
    return 0;
}

CASE(before_start_up_the_answer_comes_without_a_pause) {
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK_INT(0, atomic_load(&pauses));
}

CASE(before_each_positive_answer_is_a_pause_of_ten_milliseconds) {
    startLibrary();
    for (int i = 0; i < 3; ++i) {
        atomic_store(&pauses, 0);
        atomic_store(&lastPause, 0);
        CHECK_INT(1, xmlToImgQtInitialized());
        CHECK_INT(1, atomic_load(&pauses));
        CHECK_INT(10000, atomic_load(&lastPause));
    }
}

static void* startUntilInitialized(void* unused) {
    (void)unused;
    do {
        xmlToImgInitializeQtNoReturn();
    } while (xmlToImgQtInitialized() == 0);
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    atomic_fetch_add(&readyStarters, 1);
    return NULL;
}

CASE(the_library_is_not_initialized_before_its_application_is_complete) {
    for (int i = 0; i < Starters; ++i) {
        pthread_t thread;
        CHECK(pthread_create(&thread, NULL, startUntilInitialized, NULL) == 0);
        CHECK(pthread_detach(thread) == 0);
    }
    while (atomic_load(&readyStarters) < Starters - 1) {
        sleepMilliseconds(1);
    }
    CHECK_INT(1, xmlToImgQtInitialized());
}
