#include "support/forking.h"

#include "support/documents.h"
#include "support/harness.h"
#include "support/process.h"

#include <pthread.h>
#include <stdatomic.h>
#include <unistd.h>

static atomic_int enough;

static void* drawUntilEnough(void* output) {
    while (!atomic_load(&enough)) {
        drawDocument(TICKET, output);
    }
    return NULL;
}

void forkWhileDrawing(const char* output, int forks, void (*inChild)(int number)) {
    pthread_t drawing;
    atomic_store(&enough, 0);
    CHECK(pthread_create(&drawing, NULL, drawUntilEnough, (void*)output) == 0);
    for (int i = 0; i < forks; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            inChild(i);
        }
        checkChildSucceeds(child);
    }
    atomic_store(&enough, 1);
    CHECK(pthread_join(drawing, NULL) == 0);
}
