/* A process that is killed while it writes pictures leaves the earlier picture, the new one or
 * none; the next picture takes its remains away.
 *
 * The variable VELNOR_FAULTS_KILLS sets another number of kills, for long runs. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/random.h"

#include <velnorxmltoimg.h>

#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

enum { Kills = 20, Documents = 2, PicturesBeforeKill = 4 };

static const char* documents[Documents];
static const char* pictures[Documents];
static uint32_t timeOfPicture; /* microseconds */

static int64_t now(void) {
    struct timespec time;
    CHECK(clock_gettime(CLOCK_MONOTONIC, &time) == 0);
    return (int64_t)time.tv_sec * 1000000 + time.tv_nsec / 1000;
}

/* Pictures that take long to write, so that many kills fall into the writing. */
static void startWithDocuments(void) {
    startLibrary();
    makeFolder("out");
    documents[0] = writeLayout("0.xml", CANVAS_OF(800, 800) BOX QR_CODE);
    documents[1] = writeLayout("1.xml", CANVAS_OF(900, 700) QR_CODE);
    for (int i = 0; i < Documents; ++i) {
        const int64_t start = now();
        pictures[i] = render(documents[i], textOf("%d.bmp", i));
        timeOfPicture = (uint32_t)(now() - start);
    }
}

static void drawUntilKilled(const char* document, const char* output) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    void* handler = xmlToImgCreateHandler(document);
    for (;;) {
        xmlToImgCreateImage(handler, output);
    }
}

static void killAfter(pid_t process, uint32_t microseconds) {
    const struct timespec pause = {microseconds / 1000000, (long)(microseconds % 1000000) * 1000};
    int status = 0;
    nanosleep(&pause, NULL);
    CHECK(kill(process, SIGKILL) == 0);
    CHECK(waitpid(process, &status, 0) == process);
    CHECK(WIFSIGNALED(status));
    CHECK_INT(SIGKILL, WTERMSIG(status));
}

static int killCount(void) {
    const char* wanted = getenv("VELNOR_FAULTS_KILLS");
    return wanted != NULL ? atoi(wanted) : Kills;
}

/* One writer after the other is killed. `isNew` checks what stands there then, and tells whether
 * that is the picture that the last of them was to write. */
static void killWriters(const char* output, int (*isNew)(int round)) {
    Random random = {1234567};
    int written = 0;
    for (int round = 0; round < killCount(); ++round) {
        const pid_t process = fork();
        CHECK(process >= 0);
        if (process == 0) {
            drawUntilKilled(documents[round % Documents], pathOf(output));
        }
        killAfter(process, randomBelow(&random, PicturesBeforeKill * timeOfPicture));
        written += isNew(round);
    }
    CHECK(written > 0);
}

static int isNewOrEarlier(int round) {
    static int hasBeenThere;
    hasBeenThere = hasBeenThere || exists("out/page.bmp");
    if (!hasBeenThere) {
        return 0;
    }
    const int isNew = sameContent("out/page.bmp", pictures[round % Documents]);
    CHECK(isNew || sameContent("out/page.bmp", pictures[(round + 1) % Documents]));
    return isNew;
}

CASE(a_killed_writer_leaves_the_earlier_picture_or_the_new_one) {
    startWithDocuments();
    killWriters("out/page.bmp", isNewOrEarlier);
}

static int isNewOrNone(int round) {
    const int isThere = exists("out/page.bmp");
    if (isThere) {
        CHECK(sameContent("out/page.bmp", pictures[round % Documents]));
        CHECK(unlink(pathOf("out/page.bmp")) == 0);
    }
    return isThere;
}

CASE(a_killed_writer_leaves_no_picture_or_the_new_one) {
    startWithDocuments();
    killWriters("out/page.bmp", isNewOrNone);
}

static int remainsVanish(int round) {
    const int isThere = exists("out/page.bmp");
    render(documents[round % Documents], "out/page.bmp");
    CHECK_TEXT("page.bmp\n", listTree("out"));
    CHECK(sameContent("out/page.bmp", pictures[round % Documents]));
    return isThere;
}

CASE(the_next_picture_takes_the_remains_of_a_killed_writer_away) {
    startWithDocuments();
    killWriters("out/page.bmp", remainsVanish);
}
