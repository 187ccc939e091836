/* Handlers: creation by each creator, several at once, and the null handler. */
#include "support/files.h"
#include "support/guarded.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <stdint.h>
#include <string.h>

enum { Handlers = 50 };

static void checkCreated(void* handler) {
    CHECK(handler != NULL);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* The handler's document makes a picture of the wanted width. */
static void checkReads(void* handler, int wantedWidth) {
    CHECK(handler != NULL);
    const char* output = pathOf("read.png");
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
    CHECK_INT(wantedWidth, pngWidth(output));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    removeTree(output);
}

CASE(a_missing_document_does_not_hinder_creation) {
    startLibrary();
    const char* missing = pathOf("missing.xml");
    checkCreated(xmlToImgCreateHandler(missing));
    checkCreated(xmlToImgCreateHandlerUnicode(wideOf(missing), UpToZero));
    checkCreated(xmlToImgCreateHandlerWithDirs(missing, NULL, NULL));
    checkCreated(xmlToImgCreateHandlerWithDirsUnicode(wideOf(missing), UpToZero, NULL, 0, NULL, 0));
}

CASE(null_texts_are_empty_texts) {
    startLibrary();
    checkCreated(xmlToImgCreateHandler(NULL));
    checkCreated(xmlToImgCreateHandlerUnicode(NULL, UpToZero));
    checkCreated(xmlToImgCreateHandlerUnicode(NULL, 12));
    checkCreated(xmlToImgCreateHandlerWithDirs(NULL, NULL, NULL));
    checkCreated(xmlToImgCreateHandlerWithDirs(NULL, "", ""));
    checkCreated(xmlToImgCreateHandlerWithDirsUnicode(NULL, UpToZero, NULL, 0, NULL, 5));
}

CASE(handlers_can_be_created_before_start_up) {
    writeLayout("page.xml", CANVAS_OF(321, 100) BOX);
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    startLibrary();
    checkReads(handler, 321);
}

CASE(every_creator_reads_the_same_document) {
    startLibrary();
    const char* path = writeLayout("page.xml", CANVAS_OF(321, 100) BOX);
    const unsigned short* wide = wideOf(path);
    const int length = wideLength(wide);
    checkReads(xmlToImgCreateHandler(path), 321);
    checkReads(xmlToImgCreateHandlerUnicode(wide, UpToZero), 321);
    checkReads(xmlToImgCreateHandlerUnicode(wideWithTail(path), length), 321);
    checkReads(xmlToImgCreateHandlerWithDirs(path, "", ""), 321);
    checkReads(xmlToImgCreateHandlerWithDirsUnicode(wide, UpToZero, NULL, 0, NULL, 0), 321);
    checkReads(xmlToImgCreateHandlerWithDirsUnicode(wideWithTail(path), length, wideOf("x"), 0,
                                                    wideOf("x"), 0),
               321);
}

CASE(wide_paths_hold_surrogate_pairs) {
    startLibrary();
    const char* path = writeLayout("\xf0\x9f\x8e\xab-\xf0\x9d\x84\x9e.xml", CANVAS_OF(77, 50));
    const unsigned short* wide = wideOf(path);
    checkReads(xmlToImgCreateHandlerUnicode(wide, UpToZero), 77);
    checkReads(xmlToImgCreateHandlerUnicode(wideWithTail(path), wideLength(wide)), 77);
}

CASE(the_document_is_read_anew_by_each_call) {
    startLibrary();
    const char* path = pathOf("page.xml");
    void* handler = xmlToImgCreateHandler(path);
    writeLayout("page.xml", CANVAS_OF(100, 50));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("first.png")));
    writeLayout("page.xml", CANVAS_OF(140, 50));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("second.png")));
    CHECK_INT(100, pngWidth("first.png"));
    CHECK_INT(140, pngWidth("second.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(two_handlers_one_after_the_other_give_the_same_bytes) {
    startLibrary();
    const char* document = writeLayout("all.xml", CANVAS_OF(200, 100) BOX QR_CODE LABEL);
    render(document, "first.png");
    render(document, "second.png");
    CHECK(sameContent("first.png", "second.png"));
}

CASE(many_handlers_live_side_by_side) {
    startLibrary();
    void* handlers[Handlers];
    for (int i = 0; i < Handlers; ++i) {
        const char* children = textOf("<width>%d</width><height>20</height>", 100 + i);
        handlers[i] = xmlToImgCreateHandler(writeLayout(textOf("%d.xml", i), children));
    }
    for (int i = Handlers - 1; i >= 0; --i) {
        checkReads(handlers[i], 100 + i);
    }
}

CASE(the_keep_flag_answers_what_it_stored) {
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(5));
    CHECK_INT(0, xmlToImgSetEmbeddedFontKeepFlag(0));
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(-1));
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(INT32_MIN));
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
}

CASE(freeing_a_null_handler_fails) {
    CHECK_INT(-1, xmlToImgFreeHandler(NULL));
    startLibrary();
    CHECK_INT(-1, xmlToImgFreeHandler(NULL));
}

static void nullHandlerFailsInSetters(void) {
    const unsigned short* wide = wideOf("box.x");
    CHECK_INT(-1, xmlToImgClearAllDictionary(NULL));
    CHECK_INT(-1, xmlToImgSetTagDictionary(NULL, "tag", "value"));
    CHECK_INT(-1, xmlToImgSetTagDictionaryUnicode(NULL, wide, UpToZero, wide, UpToZero));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(NULL, "box.x", "1"));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionaryUnicode(NULL, wide, UpToZero, wide, UpToZero));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(NULL, "box.x", "1"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionaryUnicode(NULL, wide, UpToZero, wide, UpToZero));
}

static void nullHandlerFailsInGetters(void) {
    const unsigned short* name = wideOf("box.x");
    const Guarded buffer = guardedBuffer(16);
    char* out = (char*)buffer.bytes;
    unsigned short* wideOut = (unsigned short*)(void*)buffer.bytes;
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(NULL, "box.x", out, 16));
    CHECK_INT(-1, xmlToImgGetObjectTagDictionaryUnicode(NULL, name, UpToZero, wideOut, 8));
    CHECK_INT(-1, xmlToImgGetObjectLinkDictionary(NULL, "box.x", out, 16));
    CHECK_INT(-1, xmlToImgGetObjectLinkDictionaryUnicode(NULL, name, UpToZero, wideOut, 8));
    checkUntouchedFrom(buffer, 0);
}

static void nullHandlerFailsInImages(void) {
    const char* output = writeFile("kept.png", "kept");
    CHECK_INT(-1, xmlToImgCreateImage(NULL, output));
    CHECK_INT(-1, xmlToImgCreateImageUnicode(NULL, wideOf(output), UpToZero));
    CHECK_TEXT("kept", (const char*)readFile(output).bytes);
}

CASE(a_null_handler_fails_in_every_function) {
    startLibrary();
    CHECK_INT(-1, xmlToImgFreeHandler(NULL));
    nullHandlerFailsInSetters();
    nullHandlerFailsInGetters();
    nullHandlerFailsInImages();
}

CASE(a_null_handler_fails_in_every_function_before_start_up) {
    CHECK_INT(-1, xmlToImgFreeHandler(NULL));
    nullHandlerFailsInSetters();
    nullHandlerFailsInGetters();
    nullHandlerFailsInImages();
}

CASE(a_null_handler_fails_whatever_the_other_arguments) {
    startLibrary();
    CHECK_INT(-1, xmlToImgSetTagDictionary(NULL, NULL, NULL));
    CHECK_INT(-1, xmlToImgSetTagDictionaryUnicode(NULL, NULL, UpToZero, NULL, 3));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(NULL, NULL, NULL));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(NULL, NULL, NULL));
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(NULL, NULL, NULL, 0));
    CHECK_INT(-1, xmlToImgGetObjectLinkDictionaryUnicode(NULL, NULL, 0, NULL, 0));
    CHECK_INT(-1, xmlToImgCreateImage(NULL, NULL));
    CHECK_INT(-1, xmlToImgCreateImageUnicode(NULL, NULL, UpToZero));
}
