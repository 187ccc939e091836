/* Output files: their names, what happens when they cannot be written, and what stands beside
 * them. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <locale.h>
#include <stdlib.h>
#include <string.h>

#define EVERYTHING CANVAS_OF(200, 100) BOX QR_CODE LABEL
#define PAGE_WITH(picture)                                                                         \
    EVERYTHING "<VelnorItem class='image'><x>160</x><y>70</y><filepath>" picture                   \
               "</filepath></VelnorItem>"
#define NAME "caf\xc3\xa9-\xd0\xb1\xd0\xb8\xd0\xbb\xd0\xb5\xd1\x82-\xf0\x9f\x8e\xab"

enum { NestedFolders = 12 };

static void* startWithHandler(void) {
    startLibrary();
    return xmlToImgCreateHandler(writeLayout("page.xml", EVERYTHING));
}

static void checkStart(const char* name, const char* signature) {
    const Content file = readFile(name);
    CHECK(file.size > strlen(signature));
    CHECK(memcmp(file.bytes, signature, strlen(signature)) == 0);
}

CASE(an_output_that_cannot_be_written_succeeds_without_a_file) {
    void* handler = startWithHandler();
    captureOutput();
    makeFolder("folder.png");
    writeFile("file", "");
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("no-such-folder/a.png")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("folder.png")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("file/a.png")));
    CHECK_INT(0, xmlToImgCreateImage(handler, ""));
    CHECK_INT(0, xmlToImgCreateImageUnicode(handler, wideOf(""), UpToZero));
    CHECK_INT(0, xmlToImgCreateImageUnicode(handler, NULL, UpToZero));
    CHECK_INT(0, xmlToImgCreateImageUnicode(handler, NULL, 30));
    checkSilent();
    CHECK_TEXT("file\nfolder.png\npage.xml\nstderr\nstdout\n", listTree("."));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_full_device_succeeds) {
    void* handler = startWithHandler();
    linkFile("full.png", "/dev/full");
    captureOutput();
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("full.png")));
    checkSilent();
    CHECK(!exists("full.png.BARCODE.PNG"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_name_without_a_known_suffix_makes_no_file) {
    void* handler = startWithHandler();
    makeFolder("out");
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/ticket.unknown")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/ticket")));
    CHECK_TEXT("", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_suffix_chooses_the_format) {
    void* handler = startWithHandler();
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("a.png")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("b.PNG")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("c.bmp")));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("d.ppm")));
    checkStart("a.png", "\x89PNG");
    checkStart("c.bmp", "BM");
    checkStart("d.ppm", "P6");
    CHECK(sameContent("a.png", "b.PNG"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_outputs_end_at_their_zero_or_at_their_length) {
    void* handler = startWithHandler();
    const char* first = pathOf("\xf0\x9f\x8e\xab-1.png");
    const char* second = pathOf("\xf0\x9f\x8e\xab-2.png");
    CHECK_INT(0, xmlToImgCreateImageUnicode(handler, wideOf(first), UpToZero));
    CHECK_INT(
        0, xmlToImgCreateImageUnicode(handler, wideWithTail(second), wideLength(wideOf(second))));
    CHECK(sameContent(first, second));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(no_scratch_file_stays_beside_the_picture) {
    void* handler = startWithHandler();
    makeFolder("out");
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/ticket.png")));
    CHECK_TEXT("ticket.png\n", listTree("out"));
    writeFile("out/ticket.png.BARCODE.PNG", "left by a crash");
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("out/ticket.png")));
    CHECK_TEXT("ticket.png\n", listTree("out"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(no_scratch_file_stays_after_a_refused_barcode) {
    startLibrary();
    makeFolder("out");
    writeFile("out/page.png.BARCODE.PNG", "left by a crash");
    const char* document =
        writeLayout("page.xml", CANVAS_OF(100, 100) "<VelnorItem class='barcode'><type>13</type>"
                                                    "<text>letters</text></VelnorItem>");
    render(document, "out/page.png");
    CHECK_TEXT("page.png\n", listTree("out"));
}

CASE(a_scratch_file_stays_beside_a_picture_without_barcodes) {
    startLibrary();
    makeFolder("out");
    writeFile("out/page.png.BARCODE.PNG", "left by a crash");
    const char* document = writeLayout("page.xml", CANVAS_OF(100, 100) BOX
                                       "<VelnorItem class='barcode'><type>58</type>"
                                       "<text>A</text><hidden>1</hidden></VelnorItem>");
    render(document, "out/page.png");
    CHECK_TEXT("page.png\npage.png.BARCODE.PNG\n", listTree("out"));
}

CASE(paths_longer_than_255_bytes_hold_barcodes) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "short.png");
    const char* folder = "out";
    makeFolder(folder);
    for (int i = 0; i < NestedFolders; ++i) {
        folder = textOf("%s/a-folder-with-a-name-of-forty-characters-%d", folder, i);
        makeFolder(folder);
    }
    const char* output = textOf("%s/ticket.png", folder);
    CHECK(strlen(pathOf(output)) > 500);
    render(document, output);
    CHECK(sameContent("short.png", output));
    CHECK_TEXT("ticket.png\n", listTree(folder));
}

CASE(names_of_every_length_that_a_file_may_have_hold_barcodes) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "short.png");
    for (int length = 240; length <= 255; ++length) {
        const char* output = textOf("%0*d.png", length - 4, 0);
        render(document, output);
        CHECK(sameContent("short.png", output));
    }
}

/* The path of an output file, in a folder of its own, that is `length` bytes long. */
static const char* outputOfLength(size_t length) {
    const size_t left = length - strlen(scratchFolder()) - strlen("//.png");
    const char* folder = textOf("%0*d", (int)(left / 2), 0);
    if (!exists(folder)) {
        makeFolder(folder);
    }
    return pathOf(textOf("%s/%0*d.png", folder, (int)(left - left / 2), 0));
}

CASE(paths_of_every_length_around_255_bytes_give_the_same_picture) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "short.png");
    for (size_t length = 240; length <= 260; ++length) {
        const char* output = outputOfLength(length);
        CHECK_INT((long long)length, (long long)strlen(output));
        render(document, output);
        CHECK(sameContent("short.png", output));
    }
    CHECK(strstr(listTree("."), "BARCODE") == NULL);
}

/* Document, picture folder and output all have names outside ASCII. */
static void namesOutsideAsciiWork(const char* ofEnvironment, const char* ofHost) {
    setenv("LC_ALL", ofEnvironment, 1);
    setenv("LANG", ofEnvironment, 1);
    CHECK(setlocale(LC_ALL, ofHost) != NULL);
    startLibrary();
    makeFolder(NAME);
    render(writeLayout("black.xml", CANVAS_OF(30, 30) BOX), NAME "/black.png");
    render(writeLayout("plain.xml", PAGE_WITH("missing.png")), "plain.png");
    const char* document = writeLayout(NAME ".xml", PAGE_WITH(NAME "/black.png"));
    render(document, NAME "/" NAME ".png");
    CHECK_TEXT("black.png\n" NAME ".png\n", listTree(NAME));
    CHECK(!sameContent(NAME "/" NAME ".png", "plain.png"));
    void* handler = xmlToImgCreateHandlerUnicode(wideOf(document), UpToZero);
    CHECK_INT(0,
              xmlToImgCreateImageUnicode(handler, wideOf(pathOf("wide-" NAME ".png")), UpToZero));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("wide-" NAME ".png", NAME "/" NAME ".png"));
}

CASE(names_outside_ascii_work_in_the_c_locale) {
    namesOutsideAsciiWork("C", "C");
}

CASE(names_outside_ascii_work_in_a_utf8_locale) {
    namesOutsideAsciiWork("C.UTF-8", "");
}

CASE(names_outside_ascii_work_when_only_the_environment_is_utf8) {
    namesOutsideAsciiWork("C.UTF-8", "C");
}

CASE(names_outside_ascii_work_when_only_the_host_is_utf8) {
    namesOutsideAsciiWork("C", "C.UTF-8");
}
