/* The floating-point environment of the host's threads: it changes no dot, and stays as it was. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <fenv.h>

/* Documents whose angles and curves fall between two dots. */
static const char* const Patterns[] = {"shapes/*rotation*", "barcodes/rotation_*", "text/rotation*",
                                       "images/rotation_*"};
enum { PatternCount = sizeof Patterns / sizeof *Patterns, MostTextSize = 256 };

typedef void (*Mode)(void);

static void roundDown(void) {
    CHECK(fesetround(FE_DOWNWARD) == 0);
}

static void roundUp(void) {
    CHECK(fesetround(FE_UPWARD) == 0);
}

static void roundToZero(void) {
    CHECK(fesetround(FE_TOWARDZERO) == 0);
}

static void trapDivisions(void) {
    CHECK(feenableexcept(FE_DIVBYZERO | FE_INVALID) != -1);
}

static void trapEverything(void) {
    CHECK(feenableexcept(FE_ALL_EXCEPT) != -1);
}

#if defined(__x86_64__)
static unsigned int vectorControl(void) {
    unsigned int control = 0;
    __asm__ volatile("stmxcsr %0" : "=m"(control));
    return control;
}

static unsigned int x87Control(void) {
    unsigned short control = 0;
    __asm__ volatile("fnstcw %0" : "=m"(control));
    return control;
}

static void flushSmallNumbers(void) {
    const unsigned int control = vectorControl() | 0x8040;
    __asm__ volatile("ldmxcsr %0" : : "m"(control));
}

static void useSinglePrecision(void) {
    const unsigned short control = (unsigned short)(x87Control() & ~0x300U);
    __asm__ volatile("fldcw %0" : : "m"(control));
}
#else
static unsigned int vectorControl(void) {
    return 0;
}

static unsigned int x87Control(void) {
    return 0;
}

static void flushSmallNumbers(void) {}

static void useSinglePrecision(void) {}
#endif

static const char* environmentText(void) {
    return textOf("rounding %d, traps %d, flags %d, vector %x, x87 %x", fegetround(), fegetexcept(),
                  fetestexcept(FE_ALL_EXCEPT), vectorControl(), x87Control());
}

static const char* drawIn(Mode mode, const char* document) {
    mode();
    const char* picture = drawDocument(document, "there.png");
    CHECK(fesetenv(FE_DFL_ENV) == 0);
    return picture;
}

static void checkDrawsTheSameIn(Mode mode, Documents documents) {
    for (size_t i = 0; i < documents.count; ++i) {
        const char* there = drawIn(mode, documents.paths[i]);
        checkDraws(documents.paths[i], there);
    }
}

static void checkNoDotChangesIn(Mode mode) {
    mode();
    startLibrary();
    checkDrawsTheSameIn(mode, exampleDocuments());
    for (int i = 0; i < PatternCount; ++i) {
        checkDrawsTheSameIn(mode, goldenDocuments(Patterns[i]));
    }
}

CASE(rounding_down_changes_no_dot) {
    checkNoDotChangesIn(roundDown);
}

CASE(rounding_up_changes_no_dot) {
    checkNoDotChangesIn(roundUp);
}

CASE(rounding_to_zero_changes_no_dot) {
    checkNoDotChangesIn(roundToZero);
}

CASE(flushing_small_numbers_to_zero_changes_no_dot) {
    checkNoDotChangesIn(flushSmallNumbers);
}

CASE(an_x87_of_single_precision_changes_no_dot) {
    checkNoDotChangesIn(useSinglePrecision);
}

CASE(a_host_that_traps_divisions_by_zero_draws_the_same) {
    checkNoDotChangesIn(trapDivisions);
}

CASE(a_host_that_traps_every_exception_draws_the_same) {
    checkNoDotChangesIn(trapEverything);
}

static void callEverything(void) {
    char text[MostTextSize];
    int first = 0;
    int second = 0;
    int third = 0;
    void* handler = handlerOf(TICKET);
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "box.width", "7"));
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &first, &second, &third));
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Sans", &first, &second));
    xmlToImgCheckCorrect(handler, text, sizeof text);
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(NULL, 0));
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("everything.png")));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void checkStaysIn(Mode mode) {
    CHECK(fesetenv(FE_DFL_ENV) == 0);
    mode();
    const char* before = environmentText();
    callEverything();
    CHECK_TEXT(before, environmentText());
}

CASE(calls_leave_the_floating_point_environment_as_it_was) {
    const Mode modes[] = {roundDown,     roundUp,        roundToZero,       flushSmallNumbers,
                          trapDivisions, trapEverything, useSinglePrecision};
    startLibrary();
    for (size_t i = 0; i < sizeof modes / sizeof *modes; ++i) {
        checkStaysIn(modes[i]);
    }
}

static void raiseOverflow(void) {
    CHECK(feraiseexcept(FE_OVERFLOW) == 0);
}

CASE(calls_leave_the_floating_point_flags_as_they_were) {
    startLibrary();
    checkStaysIn(raiseOverflow);
    CHECK(fetestexcept(FE_OVERFLOW) != 0);
    CHECK(feclearexcept(FE_ALL_EXCEPT) == 0);
    callEverything();
    CHECK_INT(0, fetestexcept(FE_ALL_EXCEPT));
}

static void* startRoundingUp(void* unused) {
    (void)unused;
    roundUp();
    trapDivisions();
    const char* before = environmentText();
    xmlToImgInitializeQtNoReturn();
    CHECK_TEXT(before, environmentText());
    return NULL;
}

CASE(the_thread_of_the_application_has_its_floating_point_environment_again) {
    pthread_t starter;
    CHECK(pthread_create(&starter, NULL, startRoundingUp, NULL) == 0);
    waitForInitialized(1);
    callEverything();
    CHECK(endApplication(starter) == NULL);
}
