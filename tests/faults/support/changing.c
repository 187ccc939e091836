#include "support/changing.h"

#include "support/files.h"
#include "support/harness.h"

#include <fcntl.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <unistd.h>

struct Changer {
    pthread_t thread;
    void (*change)(int step);
    atomic_int stopped;
    int steps;
};

static void* keepChanging(void* argument) {
    Changer* changer = argument;
    while (!atomic_load(&changer->stopped)) {
        changer->change(changer->steps++);
    }
    return NULL;
}

Changer* startChanging(void (*change)(int step)) {
    Changer* changer = caseMemory(sizeof *changer);
    changer->change = change;
    CHECK(pthread_create(&changer->thread, NULL, keepChanging, changer) == 0);
    return changer;
}

int stopChanging(Changer* changer) {
    atomic_store(&changer->stopped, 1);
    CHECK(pthread_join(changer->thread, NULL) == 0);
    return changer->steps;
}

void rewriteFile(const char* path, const void* bytes, size_t size) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    CHECK(file >= 0);
    CHECK(write(file, bytes, size) == (ssize_t)size);
    CHECK(close(file) == 0);
}

void exchangeFile(const char* path, const void* bytes, size_t size) {
    char fresh[4096];
    snprintf(fresh, sizeof fresh, "%s.new", path);
    rewriteFile(fresh, bytes, size);
    CHECK(rename(fresh, path) == 0);
}
