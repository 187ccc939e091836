/* Start-up calls that overlap. The pause before each positive answer would hide an answer that
 * comes too early, so that the library is given a pause of no time here. */
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>
#include <stddef.h>
#include <unistd.h>

enum { Starters = 8 };

static atomic_int readyStarters;

__attribute__((visibility("default"))) int usleep(useconds_t duration) {
    (void)duration;
    return 0;
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
