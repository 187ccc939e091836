/* Font properties: which families can be used, and whether they have bold and italic styles. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

enum { Untouched = 4711 };

#define GREEK "\xce\x93\xcf\x81\xce\xb1\xce\xbc\xce\xbc\xce\xb1\xcf\x84\xce\xb1\xcf\x82\xce\xb1"
#define CLEF "\xf0\x9d\x84\x9e" /* one character, two code units */
#define CLEFS CLEF CLEF CLEF CLEF CLEF

/* A handler whose font folder the case has filled; no other fonts can be used. */
static void* startWithFonts(void) {
    hideSystemFonts();
    startLibrary();
    return xmlToImgCreateHandler(writeLayout("page.xml", ""));
}

static void checkProperty(void* handler, const char* family, int result, int bold, int italic) {
    int answers[2] = {Untouched, Untouched};
    CHECK_INT(result, xmlToImgGetFontProperty(handler, family, &answers[0], &answers[1]));
    CHECK_INT(bold, answers[0]);
    CHECK_INT(italic, answers[1]);
}

static void checkWideProperty(void* handler, const unsigned short* family, int length, int result,
                              int bold, int italic) {
    int answers[2] = {Untouched, Untouched};
    CHECK_INT(result,
              xmlToImgGetFontPropertyUnicode(handler, family, length, &answers[0], &answers[1]));
    CHECK_INT(bold, answers[0]);
    CHECK_INT(italic, answers[1]);
}

/* The same in every form in which a family can be given. */
static void checkFamily(void* handler, const char* family, int result, int bold, int italic) {
    const unsigned short* wide = wideOf(family);
    checkProperty(handler, family, result, bold, italic);
    checkWideProperty(handler, wide, UpToZero, result, bold, italic);
    checkWideProperty(handler, wide, -7, result, bold, italic);
    checkWideProperty(handler, wideWithTail(family), wideLength(wide), result, bold, italic);
}

CASE(a_family_has_the_styles_of_its_files) {
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    linkFile("fonts/bold.ttf", SANS_BOLD);
    linkFile("fonts/italic.ttf", SANS_ITALIC);
    linkFile("fonts/mono.ttf", MONO);
    writeFont("fonts/a.ttf", SANS_BOLD, "Alphafonts");
    writeFont("fonts/b.ttf", SANS_ITALIC, "Betafontss");
    void* handler = startWithFonts();
    checkFamily(handler, "Liberation Sans", 0, 1, 1);
    checkFamily(handler, "Liberation Mono", 0, 0, 0);
    checkFamily(handler, "Alphafonts Sans", 0, 1, 0);
    checkFamily(handler, "Betafontss Sans", 0, 0, 1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_broken_file_does_not_hide_the_others) {
    makeFolder("fonts");
    writeFile("fonts/a.ttf", "not a font");
    writeFile("fonts/b.ttf", "");
    linkFile("fonts/c.ttf", MONO);
    linkFile("fonts/d.ttf", "/no/such/font.ttf");
    captureOutput();
    void* handler = startWithFonts();
    checkFamily(handler, "Liberation Mono", 0, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}

CASE(an_unknown_family_fails_with_both_zero) {
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    void* handler = startWithFonts();
    checkFamily(handler, "Nowhere", -1, 0, 0);
    checkFamily(handler, "Liberation", -1, 0, 0);
    checkFamily(handler, "Liberation Sans Bold", -1, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(families_outside_ascii_are_found) {
    makeFolder("fonts");
    writeFont("fonts/a.ttf", SANS, GREEK);
    writeFont("fonts/b.ttf", SANS_BOLD, "Gr\xc3\xb6\xc3\x9f\x65\x66onts");
    void* handler = startWithFonts();
    checkFamily(handler, GREEK " Sans", 0, 0, 0);
    checkFamily(handler, "Gr\xc3\xb6\xc3\x9f\x65\x66onts Sans", 0, 1, 0);
    checkFamily(handler, "Gr\xf6\xdf\x65\x66onts Sans", -1, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(families_of_surrogate_pairs_are_found) {
    makeFolder("fonts");
    writeFont("fonts/a.ttf", SANS_ITALIC, CLEFS);
    void* handler = startWithFonts();
    checkFamily(handler, CLEFS " Sans", 0, 0, 1);
    checkFamily(handler, CLEF CLEF CLEF CLEF " Sans", -1, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_families_end_at_their_zero_or_at_their_length) {
    makeFolder("fonts");
    linkFile("fonts/mono.ttf", MONO);
    void* handler = startWithFonts();
    const unsigned short* family = wideOf("Liberation Mono");
    checkWideProperty(handler, wideWithTail("Liberation Mono"), UpToZero, -1, 0, 0);
    checkWideProperty(handler, family, wideLength(family) - 1, -1, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* The empty name stands for the default font. */
CASE(null_and_empty_families_are_the_same) {
    makeFolder("fonts");
    linkFile("fonts/mono.ttf", MONO);
    void* handler = startWithFonts();
    checkProperty(handler, "", 0, 0, 0);
    checkProperty(handler, NULL, 0, 0, 0);
    checkWideProperty(handler, NULL, UpToZero, 0, 0, 0);
    checkWideProperty(handler, NULL, 9, 0, 0, 0);
    checkWideProperty(handler, wideOf(""), UpToZero, 0, 0, 0);
    checkWideProperty(handler, wideOf("Nowhere"), 0, 0, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_answer_fails_and_writes_nothing) {
    makeFolder("fonts");
    linkFile("fonts/mono.ttf", MONO);
    void* handler = startWithFonts();
    const unsigned short* wide = wideOf("Liberation Mono");
    int answer = Untouched;
    CHECK_INT(-1, xmlToImgGetFontProperty(handler, "Liberation Mono", NULL, &answer));
    CHECK_INT(-1, xmlToImgGetFontProperty(handler, "Liberation Mono", &answer, NULL));
    CHECK_INT(-1, xmlToImgGetFontProperty(handler, "Liberation Mono", NULL, NULL));
    CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(handler, wide, UpToZero, NULL, &answer));
    CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(handler, wide, UpToZero, &answer, NULL));
    CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(handler, wide, UpToZero, NULL, NULL));
    CHECK_INT(Untouched, answer);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_handler_fails_and_writes_nothing) {
    int answer = Untouched;
    const unsigned short* wide = wideOf("Liberation Mono");
    for (int started = 0; started < 2; ++started) {
        CHECK_INT(-1, xmlToImgGetFontProperty(NULL, "Liberation Mono", &answer, &answer));
        CHECK_INT(-1, xmlToImgGetFontProperty(NULL, NULL, NULL, NULL));
        CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(NULL, wide, UpToZero, &answer, &answer));
        CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(NULL, NULL, 5, NULL, NULL));
        if (started == 0) {
            startLibrary();
        }
    }
    CHECK_INT(Untouched, answer);
}

CASE(any_handler_can_be_asked_as_long_as_the_fonts_are_registered) {
    makeFolder("fonts");
    writeFont("fonts/a.ttf", SANS, "Alphafonts");
    void* owner = startWithFonts();
    void* other = xmlToImgCreateHandlerWithDirs("no-such.xml", NULL, pathOf("no-such-folder"));
    checkFamily(other, "Alphafonts Sans", 0, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(owner));
    checkFamily(other, "Alphafonts Sans", -1, 0, 0);
    CHECK_INT(0, xmlToImgFreeHandler(other));
}
