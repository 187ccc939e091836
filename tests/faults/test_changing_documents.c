/* Documents and parameter files that change while they are read. */
#include "support/changing.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/png.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <string.h>
#include <unistd.h>

enum { Pictures = 500, ListSize = 4096 };

#define FIRST_PAGE CANVAS_OF(200, 100) BOX QR_CODE
#define SECOND_PAGE                                                                                \
    CANVAS_OF(300, 80)                                                                             \
    "<!-- Longer, so that no block of a read holds both. -->" BOX                                  \
    "<VelnorItem class='ellipse'><x>100</x><y>10</y><width>90</width><height>60</height>"          \
    "</VelnorItem>"

static const char* changed;
static Content versions[2];

static const char* padded(const char* children) {
    return textOf("%s<!--%20000s-->", children, "");
}

static void startWithVersions(const char* first, const char* second) {
    startLibrary();
    writeLayout("first.xml", first);
    writeLayout("second.xml", second);
    versions[0] = readFile("first.xml");
    versions[1] = readFile("second.xml");
    render("first.xml", "first.png");
    render("second.xml", "second.png");
    CHECK(!sameContent("first.png", "second.png"));
    changed = writeLayout("changing.xml", first);
}

static void exchangeVersions(int step) {
    exchangeFile(changed, versions[step % 2].bytes, versions[step % 2].size);
}

static void rewriteVersions(int step) {
    rewriteFile(changed, versions[step % 2].bytes, versions[step % 2].size);
}

static void cutAndDelete(int step) {
    const Content whole = versions[step % 2];
    rewriteFile(changed, whole.bytes, whole.size);
    CHECK(truncate(changed, (off_t)(whole.size / 2)) == 0);
    CHECK(unlink(changed) == 0);
}

/* The next picture, if the document makes one now. */
static int drawNext(void* handler) {
    remove(pathOf("page.png"));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    return exists("page.png");
}

CASE(a_document_that_is_exchanged_is_always_one_of_its_versions) {
    startWithVersions(padded(FIRST_PAGE), padded(SECOND_PAGE));
    void* handler = xmlToImgCreateHandler(changed);
    int seen[2] = {0, 0};
    Changer* changer = startChanging(exchangeVersions);
    for (int i = 0; i < Pictures; ++i) {
        CHECK(drawNext(handler));
        const int isFirst = sameContent("page.png", "first.png");
        CHECK(isFirst || sameContent("page.png", "second.png"));
        ++seen[isFirst ? 0 : 1];
    }
    CHECK(stopChanging(changer) > 0);
    CHECK_INT(Pictures, seen[0] + seen[1]);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void wholePicturesOrNone(void (*change)(int step)) {
    startWithVersions(padded(FIRST_PAGE), padded(SECOND_PAGE));
    void* handler = xmlToImgCreateHandler(changed);
    captureOutput();
    Changer* changer = startChanging(change);
    for (int i = 0; i < Pictures; ++i) {
        if (drawNext(handler)) {
            checkWholePng("page.png");
        }
    }
    CHECK(stopChanging(changer) > 0);
    checkSilent();
    rewriteVersions(0);
    CHECK(drawNext(handler));
    CHECK(sameContent("page.png", "first.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_document_that_is_rewritten_makes_a_whole_picture_or_none) {
    wholePicturesOrNone(rewriteVersions);
}

CASE(a_document_that_is_cut_and_deleted_makes_a_whole_picture_or_none) {
    wholePicturesOrNone(cutAndDelete);
}

CASE(queries_of_a_document_that_is_rewritten_answer_or_fail) {
    startWithVersions(padded(FIRST_PAGE), padded(SECOND_PAGE));
    void* handler = xmlToImgCreateHandler(changed);
    char text[ListSize];
    Changer* changer = startChanging(cutAndDelete);
    for (int i = 0; i < Pictures; ++i) {
        CHECK_INT(0, xmlToImgClearAllDictionary(handler));
        CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
        if (xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, ListSize) == 0) {
            CHECK(strcmp(text, "200") == 0 || strcmp(text, "300") == 0);
        }
        xmlToImgCheckCorrect(handler, text, ListSize);
        CHECK(memchr(text, 0, ListSize) != NULL);
    }
    CHECK(stopChanging(changer) > 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

#define PARAMETERS(width)                                                                          \
    "<VelnorParams><VelnorParam id='canvas'><width>" width "</width></VelnorParam></VelnorParams>"

CASE(a_parameter_file_that_is_exchanged_sets_one_of_its_values) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", CANVAS_OF(50, 20)));
    changed = writeFile("params.xml", PARAMETERS("70"));
    versions[0] = readFile("params.xml");
    writeFile("other.xml", textOf("%s%20000s", PARAMETERS("90"), ""));
    versions[1] = readFile("other.xml");
    Changer* changer = startChanging(exchangeVersions);
    for (int i = 0; i < Pictures / 5; ++i) {
        CHECK_INT(0, xmlToImgSetDictionaryFromParamFile(handler, changed));
        const int width = drawnWidth(handler);
        CHECK(width == 70 || width == 90);
    }
    CHECK(stopChanging(changer) > 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_parameter_file_that_is_rewritten_sets_whole_values_or_none) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", CANVAS_OF(50, 20)));
    changed = writeFile("params.xml", PARAMETERS("70"));
    versions[0] = readFile("params.xml");
    writeFile("other.xml", PARAMETERS("90"));
    versions[1] = readFile("other.xml");
    Changer* changer = startChanging(cutAndDelete);
    for (int i = 0; i < Pictures / 5; ++i) {
        CHECK_INT(0, xmlToImgClearAllDictionary(handler));
        const int expected = xmlToImgSetDictionaryFromParamFile(handler, changed);
        const int width = drawnWidth(handler);
        CHECK(expected == 0 ? width == 70 || width == 90 : width == 50);
    }
    CHECK(stopChanging(changer) > 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
