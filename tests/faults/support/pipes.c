#include "support/pipes.h"

#include "support/files.h"
#include "support/harness.h"

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

struct PipeReader {
    pthread_t thread;
    int pipe;
    int copy;
    size_t most;
};

const char* makePipe(const char* name) {
    const char* path = pathOf(name);
    CHECK(mkfifo(path, 0666) == 0);
    return path;
}

/* Without a writer, a pipe that was opened without waiting would look finished. */
static void waitForWriter(int pipe) {
    struct pollfd awaited = {pipe, POLLIN, 0};
    CHECK(poll(&awaited, 1, -1) == 1);
    CHECK(fcntl(pipe, F_SETFL, 0) == 0);
}

static void* copyPipe(void* argument) {
    PipeReader* reader = argument;
    waitForWriter(reader->pipe);
    char block[4096];
    size_t copied = 0;
    ssize_t size = 1;
    while (copied < reader->most && size > 0) {
        const size_t left = reader->most - copied;
        size = read(reader->pipe, block, left < sizeof block ? left : sizeof block);
        CHECK(size >= 0 && write(reader->copy, block, (size_t)size) == size);
        copied += (size_t)size;
    }
    CHECK(close(reader->pipe) == 0);
    CHECK(close(reader->copy) == 0);
    return NULL;
}

PipeReader* readPipe(const char* name, const char* copy, size_t most) {
    PipeReader* reader = caseMemory(sizeof *reader);
    reader->most = most;
    /* Before this returns, so that a writer that looks for a reader finds it. */
    reader->pipe = open(pathOf(name), O_RDONLY | O_NONBLOCK);
    CHECK(reader->pipe >= 0);
    reader->copy = open(pathOf(copy), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    CHECK(reader->copy >= 0);
    CHECK(pthread_create(&reader->thread, NULL, copyPipe, reader) == 0);
    return reader;
}

void finishReading(PipeReader* reader) {
    CHECK(pthread_join(reader->thread, NULL) == 0);
}
