#include "host.h"

#include "files.h"
#include "harness.h"

#include <velnorxmltoimg.h>

#include <fcntl.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static void* runApplication(void* unused) {
    (void)unused;
    xmlToImgInitializeQtNoReturn();
    return NULL;
}

void startLibrary(void) {
    pthread_t thread;
    CHECK(pthread_create(&thread, NULL, runApplication, NULL) == 0);
    CHECK(pthread_detach(thread) == 0);
    waitForInitialized(1);
}

void waitForInitialized(int wanted) {
    while (xmlToImgQtInitialized() != wanted) {
        sleepMilliseconds(1);
    }
}

void sleepMilliseconds(long duration) {
    const struct timespec pause = {duration / 1000, (duration % 1000) * 1000000};
    nanosleep(&pause, NULL);
}

static void sendToFile(int descriptor, const char* name) {
    const int file = open(pathOf(name), O_WRONLY | O_CREAT | O_APPEND, 0666);
    CHECK(file >= 0);
    CHECK(dup2(file, descriptor) == descriptor);
    CHECK(close(file) == 0);
}

static int keptError = -1;

void captureOutput(void) {
    keptError = dup(STDERR_FILENO);
    sendFailuresTo(keptError);
    sendToFile(STDOUT_FILENO, "stdout");
    sendToFile(STDERR_FILENO, "stderr");
}

void checkSilent(void) {
    fflush(NULL);
    CHECK(dup2(keptError, STDERR_FILENO) == STDERR_FILENO);
    CHECK_TEXT("", (const char*)readFile("stdout").bytes);
    CHECK_TEXT("", (const char*)readFile("stderr").bytes);
}

int runSmallHost(const char* document, const char* output) {
    const pid_t host = fork();
    if (host == 0) {
        execl(VELNOR_SMALL_HOST, VELNOR_SMALL_HOST, document, output, (char*)NULL);
        _exit(EXIT_FAILURE);
    }
    int status = -1;
    CHECK(waitpid(host, &status, 0) == host);
    return status;
}

void hideSystemFonts(void) {
    const char* settings =
        writeFile("fonts.conf", "<?xml version='1.0'?><fontconfig><match target='pattern'>"
                                "<edit name='hintstyle' mode='assign'><const>hintslight</const>"
                                "</edit></match></fontconfig>");
    CHECK(setenv("FONTCONFIG_FILE", settings, 1) == 0);
}
