/* ThreadSanitizer sees what happens inside the library: a host that breaks the rules is reported. */
#include "support/documents.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdatomic.h>

static void* handler;
static atomic_int hasCalled;

static void* callFirst(void* unused) {
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
    atomic_store_explicit(&hasCalled, 1, memory_order_relaxed);
    return unused;
}

/* One after the other, so that nothing is destroyed, yet without anything that orders the calls. */
CASE(calls_of_two_threads_on_one_handler_are_reported) {
    pthread_t thread;
    startLibrary();
    handler = handlerOf(TICKET);
    CHECK(pthread_create(&thread, NULL, callFirst, NULL) == 0);
    while (!atomic_load_explicit(&hasCalled, memory_order_relaxed)) {
        sleepMilliseconds(1);
    }
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
    CHECK(pthread_join(thread, NULL) == 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
