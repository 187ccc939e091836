/* Files of others beside the output, under the names that the library uses for a while, and owners
 * of the file that a picture replaces. */
#include "support/disks.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/pipes.h"
#include "support/skipping.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

enum { Somebody = 1234, SomeGroup = 4321 };

#define PAGE CANVAS_OF(200, 100) BOX QR_CODE

static const char* neighbours[] = {"out/page.png.part", "out/page.png.BARCODE.PNG"};
enum { Neighbours = sizeof neighbours / sizeof *neighbours };

static void* handlerOfPage(void) {
    startLibrary();
    makeFolder("out");
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    return handler;
}

static void draw(void* handler) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/page.png")));
}

/* The first picture of that name, and one that replaces it. */
static void drawTwice(void* handler) {
    draw(handler);
    CHECK(sameContent("out/page.png", "page.png"));
    draw(handler);
    CHECK(sameContent("out/page.png", "page.png"));
}

CASE(files_of_a_killed_process_beside_the_picture_vanish) {
    void* handler = handlerOfPage();
    writeFile("out/page.png", "earlier");
    for (int i = 0; i < Neighbours; ++i) {
        writeFile(neighbours[i], "left");
    }
    drawTwice(handler);
    CHECK_TEXT("page.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(what_links_beside_the_picture_name_is_never_written_to) {
    void* handler = handlerOfPage();
    writeFile("precious", "precious");
    writeFile("out/page.png", "earlier");
    for (int i = 0; i < Neighbours; ++i) {
        linkFile(neighbours[i], pathOf("precious"));
    }
    drawTwice(handler);
    CHECK_TEXT("precious", (const char*)readFile("precious").bytes);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(pipes_beside_the_picture_do_not_hold_the_host_up) {
    void* handler = handlerOfPage();
    writeFile("out/page.png", "earlier");
    for (int i = 0; i < Neighbours; ++i) {
        makePipe(neighbours[i]);
    }
    drawTwice(handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_folder_under_the_second_name_does_not_hinder_a_picture) {
    void* handler = handlerOfPage();
    writeFile("out/page.png", "earlier");
    makeFolder("out/page.png.part");
    writeFile("out/page.png.part/file", "of somebody else");
    drawTwice(handler);
    CHECK_TEXT("page.png\npage.png.part\npage.png.part/file\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_folder_under_the_name_that_barcodes_once_had_stays) {
    void* handler = handlerOfPage();
    makeFolder("out/page.png.BARCODE.PNG");
    drawTwice(handler);
    CHECK_TEXT("page.png\npage.png.BARCODE.PNG\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void checkOwner(const char* name, uid_t user, gid_t group) {
    struct stat found;
    CHECK(stat(pathOf(name), &found) == 0);
    CHECK_INT(user, found.st_uid);
    CHECK_INT(group, found.st_gid);
}

static void giveAway(const char* name) {
    if (chown(pathOf(name), Somebody, SomeGroup) != 0) {
        skipCase("files cannot be given away");
    }
}

CASE(a_picture_keeps_the_owner_of_the_file_that_it_replaces) {
    void* handler = handlerOfPage();
    writeFile("out/page.png", "earlier");
    giveAway("out/page.png");
    drawTwice(handler);
    checkOwner("out/page.png", Somebody, SomeGroup);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_file_of_somebody_else_that_anybody_may_write_keeps_its_owner) {
    makeFolder("out");
    writeFile("out/page.png", "earlier");
    giveAway("out/page.png");
    CHECK(chmod(pathOf("out/page.png"), 0666) == 0 && chmod(pathOf("out"), 0777) == 0);
    becomeOrdinaryUser();
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    drawTwice(handler);
    checkOwner("out/page.png", Somebody, SomeGroup);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
