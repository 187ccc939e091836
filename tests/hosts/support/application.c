#include "support/application.h"

#include "support/harness.h"
#include "support/host.h"
#include "support/qt_symbols.h"

#include <velnorxmltoimg.h>

static void* runApplication(void* unused) {
    (void)unused;
    xmlToImgInitializeQtNoReturn();
    return NULL;
}

pthread_t startApplication(void) {
    pthread_t starter;
    CHECK(pthread_create(&starter, NULL, runApplication, NULL) == 0);
    waitForInitialized(1);
    return starter;
}

void* endApplication(pthread_t starter) {
    void* result = NULL;
    quitApplication();
    CHECK(pthread_join(starter, &result) == 0);
    CHECK_INT(0, xmlToImgQtInitialized());
    return result;
}
