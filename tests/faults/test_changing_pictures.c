/* Picture files that change between measuring and drawing, that are no files, or that announce
 * more dots than fit into a host. */
#include "support/changing.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/pipes.h"
#include "support/png.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <string.h>
#include <unistd.h>

enum { Pictures = 300, Formats = 4, Spare = 64 * 1024 /* kB */ };

#define SHOWN(name)                                                                                \
    "<VelnorItem class='image'><x>20</x><y>5</y><filepath>" name "</filepath></VelnorItem>"        \
    "<VelnorItem class='image'><x>80</x><y>5</y><width>60</width><height>90</height>"              \
    "<aspect>2</aspect><rotation>20</rotation><filepath>" name "</filepath></VelnorItem>"
#define PAGE(name) CANVAS_OF(200, 100) BOX SHOWN(name)

static const char* changed;
static Content versions[Formats];

/* The same file name, four sizes and formats: Qt looks at the bytes. */
static void startWithVersions(void) {
    startLibrary();
    const char* layouts[Formats] = {CANVAS_OF(40, 30) BOX, CANVAS_OF(90, 60) BOX,
                                    CANVAS_OF(400, 300) BOX, CANVAS_OF(7, 1000) BOX};
    const char* suffixes[Formats] = {"png", "bmp", "jpg", "ppm"};
    for (int i = 0; i < Formats; ++i) {
        const char* document = writeLayout(textOf("%d.xml", i), layouts[i]);
        const char* picture = textOf("%d.%s", i, suffixes[i]);
        render(document, picture);
        versions[i] = readFile(picture);
    }
    changed = pathOf("shown.png");
    rewriteFile(changed, versions[0].bytes, versions[0].size);
}

static void exchangeVersions(int step) {
    exchangeFile(changed, versions[step % Formats].bytes, versions[step % Formats].size);
}

static void rewriteVersions(int step) {
    rewriteFile(changed, versions[step % Formats].bytes, versions[step % Formats].size);
}

static void cutVersions(int step) {
    const Content whole = versions[step % Formats];
    rewriteFile(changed, whole.bytes, whole.size);
    CHECK(truncate(changed, (off_t)(whole.size / 3)) == 0);
}

static void deleteVersions(int step) {
    rewriteVersions(step);
    CHECK(unlink(changed) == 0);
}

static void exchangeWithPipe(int step) {
    exchangeVersions(step);
    CHECK(unlink(changed) == 0);
    makePipe("shown.png");
}

/* Qt has words for a picture that ends too early. */
static void everyPictureIsWhole(void (*change)(int step)) {
    startWithVersions();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", PAGE("shown.png")));
    captureOutput();
    Changer* changer = startChanging(change);
    for (int i = 0; i < Pictures; ++i) {
        remove(pathOf("page.png"));
        CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
        checkWholePng("page.png");
    }
    CHECK(stopChanging(changer) > 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(pictures_that_are_exchanged_while_they_are_drawn_do_no_harm) {
    everyPictureIsWhole(exchangeVersions);
}

CASE(pictures_that_are_rewritten_while_they_are_drawn_do_no_harm) {
    everyPictureIsWhole(rewriteVersions);
}

CASE(pictures_that_are_cut_while_they_are_drawn_do_no_harm) {
    everyPictureIsWhole(cutVersions);
}

CASE(pictures_that_are_deleted_while_they_are_drawn_do_no_harm) {
    everyPictureIsWhole(deleteVersions);
}

CASE(pictures_that_become_pipes_while_they_are_drawn_do_no_harm) {
    everyPictureIsWhole(exchangeWithPipe);
}

/* The page looks as it does without the picture. */
static void checkNotDrawn(const char* name) {
    render(writeLayout("page.xml",
                       textOf(CANVAS_OF(200, 100) BOX "<VelnorItem class='image'><x>20</x><y>5</y>"
                                                      "<filepath>%s</filepath></VelnorItem>",
                              name)),
           "page.png");
    CHECK(sameContent("page.png", "plain.png"));
}

static void startWithPlainPage(void) {
    startLibrary();
    render(writeLayout("plain.xml", CANVAS_OF(200, 100) BOX), "plain.png");
    captureOutput();
}

CASE(what_is_no_file_is_not_drawn) {
    startWithPlainPage();
    makePipe("pipe.png");
    makeFolder("folder.png");
    linkFile("loop.png", "loop.png");
    linkFile("to-pipe.png", "pipe.png");
    linkFile("to-zero.png", "/dev/zero");
    const char* names[] = {"pipe.png",    "folder.png", "loop.png",  "to-pipe.png",
                           "to-zero.png", "/dev/zero",  "/dev/null", "/proc/self/mem"};
    for (size_t i = 0; i < sizeof names / sizeof *names; ++i) {
        checkNotDrawn(names[i]);
    }
    checkSilent();
}

/* The most address space that the process ever had, in kB. */
static long peakAddressSpace(void) {
    char line[256];
    long peak = -1;
    FILE* status = fopen("/proc/self/status", "r");
    CHECK(status != NULL);
    while (fgets(line, sizeof line, status) != NULL) {
        sscanf(line, "VmPeak: %ld", &peak);
    }
    CHECK(fclose(status) == 0 && peak > 0);
    return peak;
}

static void writeBytes(const char* name, const void* bytes, size_t size) {
    rewriteFile(pathOf(name), bytes, size);
}

/* Each says in its header that it is 20,000 dots wide and high. */
static void writeAnnouncements(void) {
    const unsigned char png[] = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x4e\x20\0\0\x4e\x20\x08\x06\0\0"
                                "\0\xac\xb9\x9c\x2e\0\0\0\x08IDAT\x78\x9c";
    const unsigned char bmp[] = "BM\x36\x01\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x20\x4e\0\0\x20\x4e\0\0"
                                "\x01\0\x18\0\0\0\0\0\0\x01\0\0\x13\x0b\0\0\x13\x0b\0\0\0\0\0\0\0\0"
                                "\0\0";
    const unsigned char jpg[] = "\xff\xd8\xff\xe0\0\x10JFIF\0\x01\x01\0\0\x01\0\x01\0\0\xff\xc0\0"
                                "\x11\x08\x4e\x20\x4e\x20\x03\x01\x11\0\x02\x11\x01\x03\x11\x01";
    const unsigned char gif[] = "GIF89a\x20\x4e\x20\x4e\x80\0\0\0\0\0\xff\xff\xff\x2c\0\0\0\0\x20"
                                "\x4e\x20\x4e\0\x02\x02\x44\x01\0\x3b";
    const char* ppm = "P6\n20000 20000\n255\nabc";
    writeBytes("huge.png", png, sizeof png);
    writeBytes("huge.bmp", bmp, sizeof bmp);
    writeBytes("huge.jpg", jpg, sizeof jpg);
    writeBytes("huge.gif", gif, sizeof gif);
    writeFile("huge.ppm", ppm);
}

CASE(a_picture_that_announces_too_many_dots_takes_no_memory) {
    startWithPlainPage();
    writeAnnouncements();
    checkNotDrawn("missing.png");
    const long before = peakAddressSpace();
    const char* suffixes[] = {"png", "bmp", "jpg", "gif", "ppm"};
    for (size_t i = 0; i < sizeof suffixes / sizeof *suffixes; ++i) {
        checkNotDrawn(textOf("huge.%s", suffixes[i]));
        if (peakAddressSpace() > before + Spare) {
            failCase(__FILE__, __LINE__, "%s took %ld kB", suffixes[i],
                     peakAddressSpace() - before);
        }
    }
}
