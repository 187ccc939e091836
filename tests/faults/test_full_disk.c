/* Disks without room, and limits to the size of a file: no picture, an earlier one kept, and the
 * host goes on. */
#include "support/disks.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/signals.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <sys/resource.h>

/* As a bitmap, a picture of 750 thousand bytes. */
#define PAGE CANVAS_OF(500, 500) BOX QR_CODE

static void limitFileSize(rlim_t size) {
    const struct rlimit limit = {size, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_FSIZE, &limit) == 0);
}

static void* startWithHandler(void) {
    startLibrary();
    return xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
}

static void draw(void* handler, const char* output) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
}

CASE(a_limit_to_file_sizes_leaves_no_picture) {
    void* handler = startWithHandler();
    makeFolder("out");
    const rlim_t limits[] = {0, 1, 100, 4096, 65536, 700000};
    for (size_t i = 0; i < sizeof limits / sizeof *limits; ++i) {
        limitFileSize(limits[i]);
        draw(handler, "out/page.bmp");
        CHECK_TEXT("", listTree("out"));
    }
    limitFileSize(RLIM_INFINITY);
    draw(handler, "out/page.bmp");
    CHECK_TEXT("page.bmp\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_limit_to_file_sizes_keeps_the_earlier_picture) {
    void* handler = startWithHandler();
    makeFolder("out");
    draw(handler, "out/page.bmp");
    draw(handler, "kept.bmp");
    limitFileSize(65536);
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "box.width", "90"));
    draw(handler, "out/page.bmp");
    CHECK_TEXT("page.bmp\n", listTree("out"));
    CHECK(sameContent("out/page.bmp", "kept.bmp"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_limit_to_file_sizes_leaves_no_trace_in_the_signals) {
    void* handler = startWithHandler();
    draw(handler, "page.bmp");
    const SignalState before = signalState();
    limitFileSize(65536);
    draw(handler, "page.bmp");
    checkSignalsAre(&before);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static volatile sig_atomic_t signalsSeen;

static void countSignal(int number) {
    (void)number;
    ++signalsSeen;
}

CASE(a_handler_of_the_host_for_that_limit_is_not_called) {
    void* handler = startWithHandler();
    const struct sigaction counting = {.sa_handler = countSignal};
    CHECK(sigaction(SIGXFSZ, &counting, NULL) == 0);
    const SignalState before = signalState();
    limitFileSize(65536);
    draw(handler, "page.bmp");
    CHECK(!exists("page.bmp"));
    CHECK_INT(0, signalsSeen);
    checkSignalsAre(&before);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_signal_of_that_kind_that_the_host_holds_back_stays_held_back) {
    void* handler = startWithHandler();
    sigset_t held;
    sigemptyset(&held);
    sigaddset(&held, SIGXFSZ);
    CHECK(pthread_sigmask(SIG_BLOCK, &held, NULL) == 0);
    CHECK(raise(SIGXFSZ) == 0);
    const SignalState before = signalState();
    limitFileSize(65536);
    draw(handler, "page.bmp");
    CHECK(!exists("page.bmp"));
    checkSignalsAre(&before);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_full_disk_gets_no_picture) {
    const char* disk = mountDisk("disk", "size=256k");
    void* handler = startWithHandler();
    captureOutput();
    draw(handler, "disk/page.bmp");
    CHECK_TEXT("", listTree("disk"));
    fillDisk(disk);
    draw(handler, "disk/page.png");
    CHECK_TEXT("filling\n", listTree("disk"));
    CHECK(remove(pathOf("disk/filling")) == 0);
    draw(handler, "disk/page.png");
    checkSilent();
    CHECK_TEXT("page.png\n", listTree("disk"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_disk_that_is_full_keeps_the_earlier_picture) {
    const char* disk = mountDisk("disk", "size=256k");
    void* handler = startWithHandler();
    draw(handler, "disk/page.png");
    draw(handler, "kept.png");
    fillDisk(disk);
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "box.width", "90"));
    draw(handler, "disk/page.png");
    CHECK_TEXT("filling\npage.png\n", listTree("disk"));
    CHECK(sameContent("disk/page.png", "kept.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_to_nothing_stays_where_its_disk_is_full) {
    mountDisk("disk", "size=64k");
    void* handler = startWithHandler();
    linkFile("page.bmp", "disk/behind.bmp");
    draw(handler, "page.bmp");
    CHECK(exists("page.bmp"));
    CHECK_TEXT("", listTree("disk"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_disk_that_takes_no_further_file_gets_no_picture) {
    mountDisk("disk", "size=4m,nr_inodes=1");
    void* handler = startWithHandler();
    captureOutput();
    draw(handler, "disk/page.bmp");
    checkSilent();
    CHECK_TEXT("", listTree("disk"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(barcodes_need_no_room_on_the_disk) {
    const char* disk = mountDisk("disk", "size=64k");
    void* handler = startWithHandler();
    draw(handler, "whole.png");
    linkFile("disk/page.png", pathOf("page.png"));
    fillDisk(disk);
    captureOutput();
    draw(handler, "disk/page.png");
    checkSilent();
    CHECK_TEXT("filling\npage.png\n", listTree("disk"));
    CHECK(sameContent("page.png", "whole.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
