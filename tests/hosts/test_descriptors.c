/* Open files: those of the library stay apart from the host's, and from its children. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/forking.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/process.h"

#include <velnorxmltoimg.h>

#include <errno.h>
#include <fcntl.h>
#include <stdatomic.h>
#include <stdlib.h>
#include <unistd.h>

enum { Pictures = 25, Forks = 200, MostDescriptors = 256, FirstOrdinary = STDERR_FILENO + 1 };

static atomic_int enough;

static int isOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

static void closeStandardStreams(void) {
    const int messages = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, FirstOrdinary);
    CHECK(messages >= FirstOrdinary);
    sendFailuresTo(messages);
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        CHECK(close(descriptor) == 0 || errno == EBADF);
    }
}

/* A host that believes to have standard streams. Whoever owns the descriptor gets the text. */
static void* talkAllTheTime(void* unused) {
    const char text[] = "a line of the host's log\n";
    while (!atomic_load(&enough)) {
        for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
            const ssize_t written = write(descriptor, text, sizeof text - 1);
            (void)written;
        }
    }
    return unused;
}

static void drawWhileTalking(const char* expected) {
    pthread_t talking;
    CHECK(pthread_create(&talking, NULL, talkAllTheTime, NULL) == 0);
    for (int i = 0; i < Pictures; ++i) {
        checkDraws(TICKET, expected);
    }
    atomic_store(&enough, 1);
    CHECK(pthread_join(talking, NULL) == 0);
}

CASE(pictures_are_whole_while_the_host_writes_to_closed_standard_streams) {
    startLibrary();
    const char* expected = drawDocument(TICKET, "expected.png");
    closeStandardStreams();
    drawWhileTalking(expected);
}

static void* drawOnce(void* unused) {
    drawDocument(TICKET, "by-thread.png");
    return unused;
}

CASE(a_host_without_standard_streams_starts_and_draws_without_taking_their_numbers) {
    closeStandardStreams();
    const pthread_t starter = startApplication();
    drawDocument(TICKET, "by-main.png");
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, drawOnce, NULL) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        CHECK(!isOpen(descriptor));
    }
    CHECK(sameContent("by-thread.png", "by-main.png"));
    CHECK(endApplication(starter) == NULL);
}

/* What a daemon does late. */
static void openStandardStreamsNowhere(void) {
    const int nowhere = open("/dev/null", O_RDWR);
    CHECK(nowhere >= 0);
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        CHECK(dup2(nowhere, descriptor) == descriptor);
    }
}

CASE(standard_streams_may_be_replaced_while_the_application_runs) {
    closeStandardStreams();
    const pthread_t starter = startApplication();
    const char* before = drawDocument(TICKET, "before.png");
    openStandardStreamsNowhere();
    checkDraws(TICKET, before);
    CHECK(endApplication(starter) == NULL);
}

static char known[MostDescriptors];

/* Runs in the child of a fork, where little is allowed. */
__attribute__((noreturn)) static void endUnlessInheritable(int unused) {
    (void)unused;
    for (int descriptor = FirstOrdinary; descriptor < MostDescriptors; ++descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (flags != -1 && (flags & FD_CLOEXEC) == 0 && !known[descriptor]) {
            _exit(EXIT_FAILURE);
        }
    }
    _exit(EXIT_SUCCESS);
}

CASE(no_open_file_of_the_library_reaches_a_program_that_the_host_executes) {
    for (int descriptor = 0; descriptor < MostDescriptors; ++descriptor) {
        known[descriptor] = (char)isOpen(descriptor);
    }
    startLibrary();
    forkWhileDrawing("again-and-again.png", Forks, endUnlessInheritable);
}

CASE(drawing_leaves_no_file_open) {
    startLibrary();
    drawDocument(TICKET, "first.png");
    const char* before = openFiles();
    for (int i = 0; i < Pictures; ++i) {
        drawDocument(TICKET, "next.png");
    }
    CHECK_TEXT(before, openFiles());
}
