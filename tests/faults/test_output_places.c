/* Outputs that are no ordinary files, or lie where files cannot be made. */
#include "support/disks.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/pipes.h"
#include "support/signals.h"
#include "support/skipping.h"

#include <velnorxmltoimg.h>

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#define PAGE CANVAS_OF(500, 500) BOX QR_CODE
#define PAGE_WITHOUT_CODE CANVAS_OF(500, 500) BOX

static void* handlerOfPage(void) {
    startLibrary();
    makeFolder("out");
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    return handler;
}

static void draw(void* handler, const char* output) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
}

static struct stat about(const char* name) {
    struct stat found;
    CHECK(lstat(pathOf(name), &found) == 0);
    return found;
}

static void checkKindIs(const char* name, mode_t kind) {
    CHECK_INT(kind, about(name).st_mode & S_IFMT);
}

CASE(a_device_stays_a_device) {
    void* handler = handlerOfPage();
    linkFile("out/null.png", "/dev/null");
    draw(handler, "out/null.png");
    CHECK_TEXT("null.png\n", listTree("out"));
    checkKindIs("out/null.png", S_IFLNK);
    checkKindIs("/dev/null", S_IFCHR);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_pipe_without_a_reader_gets_no_picture_and_stays) {
    void* handler = handlerOfPage();
    makePipe("out/pipe.png");
    captureOutput();
    const SignalState before = signalState();
    draw(handler, "out/pipe.png");
    checkSignalsAre(&before);
    checkSilent();
    CHECK_TEXT("pipe.png\n", listTree("out"));
    checkKindIs("out/pipe.png", S_IFIFO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_pipe_with_a_reader_gets_the_whole_picture) {
    void* handler = handlerOfPage();
    draw(handler, "page.bmp");
    makePipe("out/pipe.bmp");
    PipeReader* reader = readPipe("out/pipe.bmp", "copy.bmp", SIZE_MAX);
    draw(handler, "out/pipe.bmp");
    finishReading(reader);
    CHECK(sameContent("copy.bmp", "page.bmp"));
    CHECK_TEXT("pipe.bmp\n", listTree("out"));
    checkKindIs("out/pipe.bmp", S_IFIFO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_reader_that_goes_away_in_the_middle_leaves_no_trace_in_the_signals) {
    void* handler = handlerOfPage();
    makePipe("out/pipe.bmp");
    captureOutput();
    const SignalState before = signalState();
    PipeReader* reader = readPipe("out/pipe.bmp", "copy.bmp", 1000);
    draw(handler, "out/pipe.bmp");
    checkSignalsAre(&before);
    checkSilent();
    finishReading(reader);
    CHECK_INT(1000, (long long)readFile("copy.bmp").size);
    checkKindIs("out/pipe.bmp", S_IFIFO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_stays_and_its_file_gets_the_picture) {
    void* handler = handlerOfPage();
    writeFile("behind.png", "earlier");
    linkFile("out/link.png", "../behind.png");
    draw(handler, "out/link.png");
    checkKindIs("out/link.png", S_IFLNK);
    CHECK(sameContent("behind.png", "page.png"));
    CHECK_TEXT("link.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_to_nothing_stays_and_its_file_is_made) {
    void* handler = handlerOfPage();
    linkFile("out/link.png", "../behind.png");
    draw(handler, "out/link.png");
    checkKindIs("out/link.png", S_IFLNK);
    CHECK(sameContent("behind.png", "page.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_into_no_folder_gets_no_picture_and_stays) {
    void* handler = handlerOfPage();
    linkFile("out/link.png", "no-such-folder/page.png");
    captureOutput();
    draw(handler, "out/link.png");
    checkSilent();
    CHECK_TEXT("link.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_to_itself_gets_no_picture_and_stays) {
    void* handler = handlerOfPage();
    linkFile("out/loop.png", "loop.png");
    captureOutput();
    draw(handler, "out/loop.png");
    checkSilent();
    CHECK_TEXT("loop.png\n", listTree("out"));
    checkKindIs("out/loop.png", S_IFLNK);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_file_of_several_names_is_renewed_under_each) {
    void* handler = handlerOfPage();
    writeFile("out/first.png", "earlier");
    CHECK(link(pathOf("out/first.png"), pathOf("out/second.png")) == 0);
    draw(handler, "out/second.png");
    CHECK(sameContent("out/first.png", "page.png"));
    CHECK(sameContent("out/second.png", "page.png"));
    CHECK_INT(2, (long long)about("out/first.png").st_nlink);
    CHECK_TEXT("first.png\nsecond.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_new_picture_has_the_permissions_that_the_host_gives_new_files) {
    void* handler = handlerOfPage();
    umask(027);
    draw(handler, "out/first.png");
    CHECK_INT(0640, about("out/first.png").st_mode & 07777);
    umask(0);
    draw(handler, "out/second.png");
    CHECK_INT(0666, about("out/second.png").st_mode & 07777);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_picture_keeps_the_permissions_of_the_file_that_it_replaces) {
    void* handler = handlerOfPage();
    const mode_t modes[] = {0600, 0640, 0664, 0666, 0755};
    writeFile("out/page.png", "earlier");
    for (size_t i = 0; i < sizeof modes / sizeof *modes; ++i) {
        CHECK(chmod(pathOf("out/page.png"), modes[i]) == 0);
        draw(handler, "out/page.png");
        CHECK(sameContent("out/page.png", "page.png"));
        CHECK_INT(modes[i], about("out/page.png").st_mode & 07777);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_file_that_must_not_be_written_keeps_what_it_holds) {
    becomeOrdinaryUser();
    void* handler = handlerOfPage();
    writeFile("out/page.png", "earlier");
    CHECK(chmod(pathOf("out/page.png"), 0444) == 0);
    captureOutput();
    draw(handler, "out/page.png");
    checkSilent();
    CHECK_TEXT("earlier", (const char*)readFile("out/page.png").bytes);
    CHECK_TEXT("page.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_folder_that_takes_no_new_files_keeps_what_it_holds) {
    becomeOrdinaryUser();
    void* handler = handlerOfPage();
    CHECK(chmod(pathOf("out"), 0555) == 0);
    captureOutput();
    draw(handler, "out/page.png");
    checkSilent();
    CHECK_TEXT("", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_writable_file_in_a_folder_that_takes_no_new_ones_is_renewed) {
    becomeOrdinaryUser();
    void* handler = handlerOfPage();
    draw(handler, "whole.png");
    writeFile("out/page.png", textOf("%100000s", "something longer than the picture"));
    CHECK(chmod(pathOf("out"), 0555) == 0);
    draw(handler, "out/page.png");
    CHECK(sameContent("out/page.png", "whole.png"));
    CHECK_TEXT("page.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_disk_that_can_only_be_read_keeps_what_it_holds) {
    makeFolder("disk");
    writeFile("disk/earlier.png", "earlier");
    readOnlyView("disk");
    void* handler = handlerOfPage();
    captureOutput();
    draw(handler, "disk-read-only/earlier.png");
    draw(handler, "disk-read-only/new.png");
    checkSilent();
    CHECK_TEXT("earlier.png\n", listTree("disk"));
    CHECK_TEXT("earlier", (const char*)readFile("disk/earlier.png").bytes);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_folder_that_vanishes_between_two_pictures_gets_none_until_it_is_back) {
    void* handler = handlerOfPage();
    captureOutput();
    for (int round = 0; round < 3; ++round) {
        draw(handler, "out/page.png");
        CHECK(sameContent("out/page.png", "page.png"));
        removeTree(pathOf("out"));
        draw(handler, "out/page.png");
        CHECK(!exists("out"));
        makeFolder("out");
    }
    checkSilent();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A file name of that many bytes. */
static const char* outputOfLength(int length) {
    return textOf("out/%0*d.png", length - (int)strlen(".png"), 0);
}

CASE(every_name_that_a_file_can_have_gets_its_picture) {
    startLibrary();
    makeFolder("out");
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", PAGE_WITHOUT_CODE));
    draw(handler, "page.png");
    for (int length = 235; length <= NAME_MAX; ++length) {
        draw(handler, outputOfLength(length));
        CHECK(sameContent(outputOfLength(length), "page.png"));
        draw(handler, outputOfLength(length));
        CHECK(sameContent(outputOfLength(length), "page.png"));
        CHECK(remove(pathOf(outputOfLength(length))) == 0);
        CHECK_TEXT("", listTree("out"));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(names_and_paths_that_are_too_long_get_no_picture) {
    void* handler = handlerOfPage();
    captureOutput();
    draw(handler, outputOfLength(NAME_MAX + 1));
    draw(handler, outputOfLength(3000));
    draw(handler, outputOfLength(PATH_MAX));
    draw(handler, outputOfLength(1000000));
    checkSilent();
    CHECK_TEXT("", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* As acl(5) stores it: the owner and user 4711 may write, the group may read, the mask lets both. */
static const unsigned char AccessList[] = {2,    0, 0, 0,                          /* version */
                                           1,    0, 6, 0, 0xff, 0xff, 0xff, 0xff,  /* owner */
                                           2,    0, 6, 0, 0x67, 0x12, 0,    0,     /* user 4711 */
                                           4,    0, 4, 0, 0xff, 0xff, 0xff, 0xff,  /* group */
                                           0x10, 0, 6, 0, 0xff, 0xff, 0xff, 0xff,  /* mask */
                                           0x20, 0, 4, 0, 0xff, 0xff, 0xff, 0xff}; /* others */

static void setAttribute(const char* file, const char* name, const void* value, size_t size) {
    if (setxattr(file, name, value, size, 0) != 0) {
        skipCase("no attribute %s here: %s", name, strerror(errno));
    }
}

static void checkAttribute(const char* file, const char* name, const void* value, size_t size) {
    char found[100];
    CHECK_INT((long long)size, getxattr(file, name, found, sizeof found));
    CHECK(memcmp(value, found, size) == 0);
}

CASE(a_replaced_file_keeps_its_extended_attributes_and_access_list) {
    void* handler = handlerOfPage();
    const char* output = writeFile("out/page.png", "earlier");
    setAttribute(output, "user.origin", "till 7", 6);
    setAttribute(output, "system.posix_acl_access", AccessList, sizeof AccessList);
    const struct stat before = about("out/page.png");
    draw(handler, "out/page.png");
    CHECK(sameContent("out/page.png", "page.png"));
    CHECK(about("out/page.png").st_ino != before.st_ino);
    CHECK_INT(before.st_mode, about("out/page.png").st_mode);
    checkAttribute(output, "user.origin", "till 7", 6);
    checkAttribute(output, "system.posix_acl_access", AccessList, sizeof AccessList);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* The events that a watcher of the folder has seen of files of this name. */
static uint32_t eventsOf(int watcher, const char* name) {
    char buffer[4096] __attribute__((aligned(8)));
    uint32_t seen = 0;
    const ssize_t size = read(watcher, buffer, sizeof buffer);
    for (ssize_t at = 0; at < size;) {
        const struct inotify_event* event = (const struct inotify_event*)(buffer + at);
        seen |= event->len > 0 && strcmp(event->name, name) == 0 ? event->mask : 0;
        at += (ssize_t)(sizeof *event + event->len);
    }
    return seen;
}

CASE(a_watcher_sees_a_new_picture_created_and_a_replaced_one_moved) {
    void* handler = handlerOfPage();
    const int watcher = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    CHECK(inotify_add_watch(watcher, pathOf("out"), IN_ALL_EVENTS) >= 0);
    draw(handler, "out/page.png");
    const uint32_t created = eventsOf(watcher, "page.png");
    draw(handler, "out/page.png");
    const uint32_t replaced = eventsOf(watcher, "page.png");
    CHECK((created & IN_CREATE) != 0 && (created & IN_CLOSE_WRITE) == 0);
    CHECK((replaced & IN_MOVED_TO) != 0 && (replaced & IN_CLOSE_WRITE) == 0);
    CHECK(close(watcher) == 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
