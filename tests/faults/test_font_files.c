/* Font files that are broken, that are no files, or that change while texts are drawn in them. */
#include "support/changing.h"
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/pipes.h"
#include "support/png.h"
#include "support/random.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <string.h>
#include <unistd.h>

enum { Lengths = 40, Damages = 40, Pictures = 100 };

#define PAGE                                                                                       \
    CANVAS_OF(200, 100)                                                                            \
    "<VelnorItem class='text'><x>5</x><y>5</y><width>190</width><height>90</height>"               \
    "<fontname>Liberation Sans</fontname><fontsize>10</fontsize><rotation>10</rotation>"           \
    "<text>Ticket \xc3\xa9\xd0\xb1 fi 4711</text></VelnorItem>"

static void startWithFonts(void) {
    hideSystemFonts();
    startLibrary();
    makeFolder("fonts");
    writeLayout("page.xml", PAGE);
    render("page.xml", "fontless.png");
}

static void copyFont(const char* name, const char* original) {
    const Content font = readFile(original);
    rewriteFile(pathOf(name), font.bytes, font.size);
}

static void checkSans(const char* picture) {
    copyFont("fonts/sans.ttf", SANS);
    remove(pathOf(picture));
    render("page.xml", picture);
    CHECK(!sameContent(picture, "fontless.png"));
}

static void draw(void* handler, const char* output) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
}

static void removeFile(const char* name) {
    CHECK(unlink(pathOf(name)) == 0);
}

static void cutFile(const char* name) {
    CHECK(truncate(pathOf(name), 100) == 0);
}

static void fontsSurvive(void (*damage)(const char* name), int keep) {
    startWithFonts();
    copyFont("fonts/sans.ttf", SANS);
    CHECK_INT(keep, xmlToImgSetEmbeddedFontKeepFlag(keep));
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    damage("fonts/sans.ttf");
    draw(handler, "after.png");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK_INT(0, xmlToImgSetEmbeddedFontKeepFlag(0));
    removeTree(pathOf("fonts"));
    makeFolder("fonts");
    checkSans("sans.png");
    CHECK(sameContent("after.png", "sans.png"));
}

CASE(texts_keep_their_font_when_its_file_is_removed) {
    fontsSurvive(removeFile, 0);
}

CASE(texts_keep_their_font_when_its_file_is_cut) {
    fontsSurvive(cutFile, 0);
}

CASE(texts_keep_a_kept_font_when_its_file_is_removed) {
    fontsSurvive(removeFile, 1);
}

CASE(texts_keep_a_kept_font_when_its_file_is_cut) {
    fontsSurvive(cutFile, 1);
}

CASE(a_folder_of_fonts_that_is_removed_takes_no_font_from_its_handler) {
    startWithFonts();
    checkSans("sans.png");
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    removeTree(pathOf("fonts"));
    draw(handler, "after.png");
    CHECK(sameContent("after.png", "sans.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    render("page.xml", "without.png");
    CHECK(sameContent("without.png", "fontless.png"));
}

static void exchangeFont(int step) {
    const char* fonts[] = {SANS, MONO, SANS_BOLD};
    copyFont("fonts/sans.ttf", fonts[step % 3]);
    CHECK(truncate(pathOf("fonts/sans.ttf"), 1000 * (step % 7)) == 0);
    remove(pathOf("fonts/sans.ttf"));
}

CASE(fonts_that_change_while_handlers_come_and_go_do_no_harm) {
    startWithFonts();
    captureOutput();
    Changer* changer = startChanging(exchangeFont);
    for (int i = 0; i < Pictures; ++i) {
        xmlToImgSetEmbeddedFontKeepFlag(i % 10 != 0);
        render("page.xml", "page.png");
        checkWholePng("page.png");
    }
    CHECK(stopChanging(changer) > 0);
    checkSilent();
    xmlToImgSetEmbeddedFontKeepFlag(0);
    checkSans("after.png");
}

CASE(what_is_no_font_file_in_the_folder_is_passed_over) {
    startWithFonts();
    checkSans("sans.png");
    makePipe("fonts/pipe.ttf");
    makeFolder("fonts/folder.ttf");
    linkFile("fonts/zero.ttf", "/dev/zero");
    linkFile("fonts/loop.ttf", "loop.ttf");
    linkFile("fonts/nothing.ttf", "no-such-file");
    linkFile("fonts/pipe-link.ttf", "pipe.ttf");
    writeFile("fonts/sparse.ttf", "");
    CHECK(truncate(pathOf("fonts/sparse.ttf"), 1LL << 30) == 0);
    captureOutput();
    for (int keep = 0; keep <= 1; ++keep) {
        CHECK_INT(keep, xmlToImgSetEmbeddedFontKeepFlag(keep));
        render("page.xml", "page.png");
        CHECK(sameContent("page.png", "sans.png"));
    }
    checkSilent();
}

/* Draws and asks with one broken font. Qt has words for glyphs that cannot be loaded. */
static void drawWithFont(const void* bytes, size_t size) {
    rewriteFile(pathOf("fonts/sans.ttf"), bytes, size);
    render("page.xml", "page.png");
    checkWholePng("page.png");
    int bold = 0;
    int italic = 0;
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic);
    xmlToImgCheckCorrect(handler, NULL, 0);
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(fonts_that_are_cut_short_do_no_harm) {
    startWithFonts();
    const Content font = readFile(SANS);
    Random random = {4711};
    captureOutput();
    for (int i = 0; i < Lengths; ++i) {
        /* Half of them within the tables at the start. */
        const uint32_t below = i % 2 == 0 ? 2000 : (uint32_t)font.size;
        drawWithFont(font.bytes, randomBelow(&random, below));
    }
    checkSilent();
    checkSans("after.png");
}

CASE(fonts_with_changed_bytes_do_no_harm) {
    startWithFonts();
    const Content font = readFile(SANS);
    unsigned char* damaged = caseMemory(font.size);
    Random random = {4712};
    captureOutput();
    for (int i = 0; i < Damages; ++i) {
        memcpy(damaged, font.bytes, font.size);
        for (int bytes = 1 << randomBelow(&random, 12); bytes > 0; --bytes) {
            const uint32_t below = i % 2 == 0 ? 2000 : (uint32_t)font.size;
            damaged[randomBelow(&random, below)] = (unsigned char)randomBelow(&random, 256);
        }
        drawWithFont(damaged, font.size);
    }
    checkSans("after.png");
}
