/* Calls while another thread starts the library: they fail softly until the application is up. */
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"

#include <velnorxmltoimg.h>

#include <stdatomic.h>

enum { Lives = 10 };

static atomic_int callsBegan;

static void askForFonts(void) {
    int bold = 7;
    int italic = 7;
    void* handler = xmlToImgCreateHandler("no-such-document.xml");
    const int known = xmlToImgGetFontProperty(handler, "Nowhere", &bold, &italic);
    CHECK_INT(-1, known);
    CHECK_INT(0, bold);
    CHECK_INT(0, italic);
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void drawTicket(void) {
    drawDocument(TICKET, "early.png");
}

static void validateTicket(void) {
    void* handler = handlerOf(TICKET);
    xmlToImgCheckCorrect(handler, NULL, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void* callUntilInitialized(void* given) {
    void (*const* call)(void) = given;
    do {
        (*call)();
        atomic_store(&callsBegan, 1);
    } while (xmlToImgQtInitialized() == 0);
    return NULL;
}

/* A host does not call while its application ends. */
static void checkIsSafeDuringStartUp(void (*call)(void)) {
    captureOutput();
    for (int life = 0; life < Lives; ++life) {
        pthread_t calling;
        atomic_store(&callsBegan, 0);
        CHECK(pthread_create(&calling, NULL, callUntilInitialized, &call) == 0);
        while (!atomic_load(&callsBegan)) {
            sleepMilliseconds(1);
        }
        const pthread_t starter = startApplication();
        CHECK(pthread_join(calling, NULL) == 0);
        CHECK(endApplication(starter) == NULL);
    }
    checkSilent();
}

CASE(fonts_may_be_asked_for_while_the_library_starts) {
    checkIsSafeDuringStartUp(askForFonts);
}

CASE(pictures_may_be_drawn_while_the_library_starts) {
    checkIsSafeDuringStartUp(drawTicket);
    CHECK(exists("early.png"));
}

CASE(documents_may_be_validated_while_the_library_starts) {
    checkIsSafeDuringStartUp(validateTicket);
}
