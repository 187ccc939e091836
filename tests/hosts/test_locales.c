/* Locales that a host gives to one of its threads. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <locale.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

/* Decimals with a comma, and another text for "yes". */
#define LOCALE_SOURCE                                                                              \
    "comment_char %%\nescape_char /\n"                                                             \
    "LC_NUMERIC\ndecimal_point \"<U002C>\"\nthousands_sep \"<U002E>\"\ngrouping 3;3\n"             \
    "END LC_NUMERIC\n"

static locale_t commaLocale(void) {
    const char* source = writeFile("comma.source", textOf(LOCALE_SOURCE));
    const char* folder = makeFolder("locales");
    const char* compile =
        textOf("localedef --force --quiet --no-archive -i %s %s/comma 2>/dev/null", source, folder);
    const int warned = system(compile);
    (void)warned;
    CHECK(exists("locales/comma/LC_NUMERIC"));
    CHECK(setenv("LOCPATH", folder, 1) == 0);
    const locale_t comma = newlocale(LC_NUMERIC_MASK, "comma", (locale_t)0);
    CHECK(comma != (locale_t)0);
    return comma;
}

static void checkDecimalPoint(const char* expected) {
    CHECK_TEXT(expected, localeconv()->decimal_point);
}

static void drawSome(Documents documents, const char* folder) {
    makeFolder(folder);
    for (size_t i = 0; i < documents.count; ++i) {
        drawDocument(documents.paths[i], textOf("%s/%zu.png", folder, i));
    }
}

CASE(a_locale_of_one_thread_stays_and_changes_no_dot) {
    const locale_t comma = commaLocale();
    startLibrary();
    drawSome(exampleDocuments(), "expected");
    CHECK(uselocale(comma) != (locale_t)0);
    checkDecimalPoint(",");
    drawSome(exampleDocuments(), "drawn");
    CHECK(uselocale((locale_t)0) == comma);
    checkDecimalPoint(",");
    CHECK(uselocale(LC_GLOBAL_LOCALE) == comma);
    checkDecimalPoint(".");
    for (size_t i = 0; i < exampleDocuments().count; ++i) {
        CHECK(sameContent(textOf("expected/%zu.png", i), textOf("drawn/%zu.png", i)));
    }
}

CASE(a_locale_of_one_thread_stays_while_another_starts_the_library) {
    const locale_t comma = commaLocale();
    CHECK(uselocale(comma) != (locale_t)0);
    startLibrary();
    CHECK(uselocale((locale_t)0) == comma);
    checkDecimalPoint(",");
    drawDocument(TICKET, "drawn.png");
    CHECK(uselocale((locale_t)0) == comma);
}

static void* startWithLocale(void* given) {
    const locale_t* comma = given;
    CHECK(uselocale(*comma) != (locale_t)0);
    xmlToImgInitializeQtNoReturn();
    CHECK(uselocale((locale_t)0) == *comma);
    CHECK_TEXT(",", localeconv()->decimal_point);
    return NULL;
}

CASE(a_thread_with_a_locale_of_its_own_starts_the_library_and_keeps_it) {
    locale_t comma = commaLocale();
    pthread_t starter;
    CHECK(pthread_create(&starter, NULL, startWithLocale, &comma) == 0);
    waitForInitialized(1);
    drawDocument(TICKET, "drawn.png");
    checkDecimalPoint(".");
    CHECK_TEXT("C", setlocale(LC_ALL, NULL));
    CHECK(endApplication(starter) == NULL);
}
