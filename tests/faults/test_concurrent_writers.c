/* Several writers of one output, and readers of it. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

enum { Writers = 2, Pictures = 150 };

static const char* documents[Writers];
static Content versions[Writers];

static void startWithDocuments(void) {
    startLibrary();
    makeFolder("out");
    documents[0] = writeLayout("0.xml", CANVAS_OF(400, 300) BOX);
    documents[1] = writeLayout("1.xml", CANVAS_OF(500, 400) BOX);
    for (int i = 0; i < Writers; ++i) {
        versions[i] = readFile(render(documents[i], textOf("%d.bmp", i)));
    }
    render(documents[0], "out/page.bmp");
}

static void drawAgainAndAgain(const char* document, int count) {
    void* handler = xmlToImgCreateHandler(document);
    for (int i = 0; i < count; ++i) {
        CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/page.bmp")));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static pid_t startWriter(const char* document, int count) {
    const pid_t process = fork();
    CHECK(process >= 0);
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        drawAgainAndAgain(document, count);
        _exit(EXIT_SUCCESS);
    }
    return process;
}

static unsigned char seen[2 * 1024 * 1024];

/* What a reader that opens the output now gets is one of the pictures. */
static void checkWhole(void) {
    FILE* file = fopen(pathOf("out/page.bmp"), "rb");
    CHECK(file != NULL);
    const size_t size = fread(seen, 1, sizeof seen, file);
    CHECK(fclose(file) == 0);
    for (int i = 0; i < Writers; ++i) {
        if (versions[i].size == size && memcmp(versions[i].bytes, seen, size) == 0) {
            return;
        }
    }
    failCase(__FILE__, __LINE__, "a reader saw %zu bytes of no picture", size);
}

static void checkWholeUntilEndOf(pid_t writer) {
    int status = 0;
    while (waitpid(writer, &status, WNOHANG) == 0) {
        checkWhole();
    }
    CHECK_INT(0, status);
    checkWhole();
}

CASE(a_reader_sees_whole_pictures_while_they_are_replaced) {
    startWithDocuments();
    const pid_t writer = startWriter(documents[1], Pictures);
    checkWholeUntilEndOf(writer);
    CHECK_TEXT("page.bmp\n", listTree("out"));
}

CASE(a_reader_sees_whole_pictures_of_several_processes) {
    startWithDocuments();
    const pid_t first = startWriter(documents[0], Pictures);
    const pid_t second = startWriter(documents[1], Pictures);
    checkWholeUntilEndOf(first);
    checkWholeUntilEndOf(second);
    CHECK_TEXT("page.bmp\n", listTree("out"));
}
