/* The list of fonts: its form, and how it follows the fonts that come and go. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <string.h>

#define ALPHA "Alphafonts Sans Regular"
#define GAMMA "Gammafonts Sans Regular"

/* How often the list holds the entry. */
static int listed(const char* entry) {
    char* list = xmlToImgAvailableFontList();
    CHECK(list != NULL);
    const char* whole = textOf(";%s;", list);
    xmlToImgFreeFontList(list);
    const char* wanted = textOf(";%s;", entry);
    int count = 0;
    for (const char* at = strstr(whole, wanted); at != NULL; at = strstr(at + 1, wanted)) {
        ++count;
    }
    return count;
}

static void* handlerWithFonts(const char* folder) {
    return xmlToImgCreateHandlerWithDirs(pathOf("page.xml"), NULL, pathOf(folder));
}

static void startWithFolder(void) {
    hideSystemFonts();
    startLibrary();
    makeFolder("fonts");
}

CASE(entries_are_family_blank_style_separated_by_semicolons) {
    startWithFolder();
    linkFile("fonts/sans.ttf", SANS);
    linkFile("fonts/bold.ttf", SANS_BOLD);
    linkFile("fonts/mono.ttf", MONO);
    void* handler = handlerWithFonts("fonts");
    CHECK_INT(1, listed("Liberation Sans Regular"));
    CHECK_INT(1, listed("Liberation Sans Bold"));
    CHECK_INT(1, listed("Liberation Mono Regular"));
    CHECK_INT(0, listed("Liberation Mono Bold"));
    CHECK_INT(0, listed("Liberation Sans Italic"));
    CHECK_INT(0, listed(""));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(no_semicolon_stands_at_either_end) {
    startLibrary();
    char* list = xmlToImgAvailableFontList();
    CHECK(list != NULL);
    const size_t length = strlen(list);
    CHECK(length > 0);
    CHECK(list[0] != ';');
    CHECK(list[length - 1] != ';');
    CHECK(strstr(list, ";;") == NULL);
    xmlToImgFreeFontList(list);
}

CASE(the_list_follows_the_fonts_of_handlers) {
    startWithFolder();
    makeFolder("more");
    writeFont("fonts/a.ttf", SANS, "Alphafonts");
    writeFont("more/g.ttf", SANS, "Gammafonts");
    CHECK_INT(0, listed(ALPHA));
    void* first = handlerWithFonts("fonts");
    CHECK_INT(1, listed(ALPHA));
    CHECK_INT(0, listed(GAMMA));
    void* second = handlerWithFonts("more");
    CHECK_INT(1, listed(ALPHA));
    CHECK_INT(1, listed(GAMMA));
    CHECK_INT(0, xmlToImgFreeHandler(first));
    CHECK_INT(0, listed(ALPHA));
    CHECK_INT(0, listed(GAMMA));
    CHECK_INT(0, xmlToImgFreeHandler(second));
}

CASE(a_list_does_not_change_after_it_was_given) {
    startWithFolder();
    writeFont("fonts/a.ttf", SANS, "Alphafonts");
    void* handler = handlerWithFonts("fonts");
    char* before = xmlToImgAvailableFontList();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    char* after = xmlToImgAvailableFontList();
    CHECK(before != after);
    CHECK(strstr(before, ALPHA) != NULL);
    CHECK(strstr(after, ALPHA) == NULL);
    xmlToImgFreeFontList(before);
    xmlToImgFreeFontList(after);
}

CASE(kept_fonts_stay_in_the_list) {
    startWithFolder();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    writeFont("fonts/a.ttf", SANS, "Alphafonts");
    CHECK_INT(0, xmlToImgFreeHandler(handlerWithFonts("fonts")));
    CHECK_INT(1, listed(ALPHA));
    void* again = handlerWithFonts("fonts");
    CHECK_INT(1, listed(ALPHA));
    CHECK_INT(0, xmlToImgSetEmbeddedFontKeepFlag(0));
    CHECK_INT(1, listed(ALPHA));
    CHECK_INT(0, xmlToImgFreeHandler(again));
    CHECK_INT(0, listed(ALPHA));
}

CASE(under_the_flag_a_file_of_another_size_is_listed_beside_the_font_it_replaced) {
    startWithFolder();
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    writeFont("fonts/a.ttf", SANS, "Alphafonts");
    void* first = handlerWithFonts("fonts");
    removeTree(pathOf("fonts/a.ttf"));
    writeFont("fonts/a.ttf", SANS_BOLD, "Gammafonts");
    void* second = handlerWithFonts("fonts");
    CHECK_INT(1, listed("Gammafonts Sans Bold"));
    CHECK_INT(1, listed(ALPHA));
    CHECK_INT(0, xmlToImgFreeHandler(first));
    CHECK_INT(0, xmlToImgFreeHandler(second));
    CHECK_INT(1, listed("Gammafonts Sans Bold"));
}

CASE(the_list_is_latin1) {
    startWithFolder();
    writeFont("fonts/a.ttf", SANS, "Gr\xc3\xb6\xc3\x9f\x65\x66onts");
    void* handler = handlerWithFonts("fonts");
    CHECK_INT(1, listed("Gr\xf6\xdf\x65\x66onts Sans Regular"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(characters_outside_latin1_are_question_marks) {
    startWithFolder();
    writeFont("fonts/a.ttf", SANS, "\xe2\x82\xacurof\xcf\x89nts!");
    void* handler = handlerWithFonts("fonts");
    CHECK_INT(1, listed("?urof?nts! Sans Regular"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(files_that_are_no_fonts_are_not_listed) {
    startWithFolder();
    char* before = xmlToImgAvailableFontList();
    writeFile("fonts/a.ttf", "not a font");
    writeFile("fonts/b.ttf", "");
    void* handler = handlerWithFonts("fonts");
    char* after = xmlToImgAvailableFontList();
    CHECK_TEXT(before, after);
    xmlToImgFreeFontList(before);
    xmlToImgFreeFontList(after);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(freeing_a_null_list_does_nothing) {
    xmlToImgFreeFontList(NULL);
    startLibrary();
    xmlToImgFreeFontList(NULL);
}
