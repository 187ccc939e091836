/* Embedded fonts: which text can be drawn in them, and for how long. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#define PAGE CANVAS_OF(200, 100) LABEL
#define MONO_PAGE                                                                                  \
    CANVAS_OF(200, 100)                                                                            \
    "<VelnorItem class='text'><x>5</x><y>5</y><width>190</width><height>80</height>"               \
    "<fontname>Liberation Mono</fontname><fontsize>10</fontsize><text>iiiWWW</text></VelnorItem>"

/* Two folders hold the same document; "with" has the font files beside it. */
static void startWithDocuments(void) {
    hideSystemFonts();
    startLibrary();
    makeFolder("without");
    makeFolder("with");
    makeFolder("with/fonts");
    linkFile("with/fonts/sans.ttf", SANS);
    writeLayout("without/page.xml", PAGE);
    writeLayout("with/page.xml", PAGE);
    render("without/page.xml", "fontless.png");
}

static void* handlerOf(const char* document) {
    void* handler = xmlToImgCreateHandler(pathOf(document));
    CHECK(handler != NULL);
    return handler;
}

static void draw(void* handler, const char* output) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
}

CASE(fonts_beside_the_document_are_used) {
    startWithDocuments();
    render("with/page.xml", "sans.png");
    CHECK(!sameContent("sans.png", "fontless.png"));
}

CASE(fonts_of_a_given_directory_are_used) {
    startWithDocuments();
    render("with/page.xml", "beside.png");
    void* handler =
        xmlToImgCreateHandlerWithDirs(pathOf("without/page.xml"), NULL, pathOf("with/fonts"));
    draw(handler, "given.png");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("given.png", "beside.png"));
}

CASE(fonts_of_a_directory_given_in_utf16_are_used) {
    startWithDocuments();
    render("with/page.xml", "beside.png");
    const unsigned short* fonts = wideOf(pathOf("with/fonts"));
    void* handler =
        xmlToImgCreateHandlerWithDirsUnicode(wideOf(pathOf("without/page.xml")), UpToZero, NULL, 0,
                                             wideWithTail(pathOf("with/fonts")), wideLength(fonts));
    draw(handler, "given.png");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("given.png", "beside.png"));
}

CASE(an_empty_font_directory_means_the_one_beside_the_document) {
    startWithDocuments();
    render("with/page.xml", "beside.png");
    void* handler = xmlToImgCreateHandlerWithDirs(pathOf("with/page.xml"), "", "");
    draw(handler, "empty.png");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("empty.png", "beside.png"));
}

CASE(a_missing_font_directory_is_no_error) {
    startWithDocuments();
    void* handler =
        xmlToImgCreateHandlerWithDirs(pathOf("with/page.xml"), NULL, pathOf("no-such-folder"));
    draw(handler, "missing.png");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("missing.png", "fontless.png"));
}

CASE(files_that_are_no_fonts_are_skipped_in_silence) {
    startWithDocuments();
    render("with/page.xml", "before.png");
    writeFile("with/fonts/a.ttf", "not a font");
    writeFile("with/fonts/empty.ttf", "");
    makeFolder("with/fonts/folder");
    captureOutput();
    render("with/page.xml", "after.png");
    checkSilent();
    CHECK(sameContent("before.png", "after.png"));
}

CASE(freeing_a_handler_takes_the_fonts_from_all) {
    startWithDocuments();
    void* first = handlerOf("with/page.xml");
    void* second = handlerOf("with/page.xml");
    draw(first, "before.png");
    CHECK_INT(0, xmlToImgFreeHandler(second));
    draw(first, "after.png");
    CHECK(!sameContent("before.png", "after.png"));
    CHECK(sameContent("after.png", "fontless.png"));
    CHECK_INT(0, xmlToImgFreeHandler(first));
}

CASE(kept_fonts_survive_the_freeing_of_another_handler) {
    startWithDocuments();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    void* first = handlerOf("with/page.xml");
    void* second = handlerOf("with/page.xml");
    draw(first, "before.png");
    CHECK_INT(0, xmlToImgFreeHandler(second));
    draw(first, "after.png");
    CHECK(sameContent("before.png", "after.png"));
    CHECK(!sameContent("before.png", "fontless.png"));
    CHECK_INT(0, xmlToImgFreeHandler(first));
}

CASE(kept_fonts_survive_all_handlers) {
    startWithDocuments();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    render("with/page.xml", "with.png");
    render("without/page.xml", "later.png");
    CHECK(sameContent("with.png", "later.png"));
}

CASE(without_the_flag_fonts_end_with_their_handler) {
    startWithDocuments();
    render("with/page.xml", "with.png");
    render("without/page.xml", "later.png");
    CHECK(sameContent("later.png", "fontless.png"));
}

CASE(after_the_flag_is_off_the_next_freeing_drops_kept_fonts) {
    startWithDocuments();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    render("with/page.xml", "with.png");
    CHECK_INT(0, xmlToImgSetEmbeddedFontKeepFlag(0));
    void* handler = handlerOf("without/page.xml");
    draw(handler, "kept.png");
    CHECK(sameContent("kept.png", "with.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    render("without/page.xml", "dropped.png");
    CHECK(sameContent("dropped.png", "fontless.png"));
}

CASE(a_kept_font_file_of_another_size_is_registered_anew) {
    startWithDocuments();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    writeLayout("with/page.xml", MONO_PAGE);
    render("with/page.xml", "sans-only.png");
    removeTree(pathOf("with/fonts/sans.ttf"));
    linkFile("with/fonts/sans.ttf", MONO);
    render("with/page.xml", "replaced.png");
    CHECK(!sameContent("sans-only.png", "replaced.png"));
}

CASE(a_family_that_was_missing_is_found_once_it_is_registered) {
    startWithDocuments();
    render("with/page.xml", "first.png");
    render("without/page.xml", "between.png");
    render("with/page.xml", "second.png");
    CHECK(sameContent("between.png", "fontless.png"));
    CHECK(sameContent("first.png", "second.png"));
}
