#include "support/loaded_library.h"

#include "support/files.h"
#include "support/harness.h"
#include "support/process.h"
#include "support/qt_symbols.h"

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

void* symbolIn(void* loaded, const char* name) {
    void* symbol = dlsym(loaded, name);
    if (symbol == NULL) {
        failCase(__FILE__, __LINE__, "no symbol %s: %s", name, dlerror());
    }
    return symbol;
}

/* ISO C has no conversion of an object's address to a function's; POSIX promises this one. */
static void setFunction(void* function, void* loaded, const char* name) {
    *(void**)function = symbolIn(loaded, name);
}

Library loadLibrary(const char* path, int flags) {
    Library library = {0};
    void* loaded = dlopen(path, flags);
    if (loaded == NULL) {
        failCase(__FILE__, __LINE__, "cannot load: %s", dlerror());
    }
    library.loaded = loaded;
    setFunction(&library.initialize, loaded, "xmlToImgInitializeQtNoReturn");
    setFunction(&library.isInitialized, loaded, "xmlToImgQtInitialized");
    setFunction(&library.createHandler, loaded, "xmlToImgCreateHandler");
    setFunction(&library.createImage, loaded, "xmlToImgCreateImage");
    setFunction(&library.freeHandler, loaded, "xmlToImgFreeHandler");
    setFunction(&library.setKeepFlag, loaded, "xmlToImgSetEmbeddedFontKeepFlag");
    setFunction(&library.getFontProperty, loaded, "xmlToImgGetFontProperty");
    library.startedByLibrary = symbolIn(loaded, "VelnorQtStartedAsNonGuiApp");
    return library;
}

void unloadLibrary(Library library) {
    CHECK(dlclose(library.loaded) == 0);
}

static void* runApplication(void* given) {
    void (*const* initialize)(void) = given;
    (*initialize)();
    return NULL;
}

pthread_t startLoaded(const Library* library) {
    const struct timespec pause = {0, 1000000};
    pthread_t starter;
    void* initialize = caseMemory(sizeof library->initialize);
    *(void (**)(void))initialize = library->initialize;
    CHECK(pthread_create(&starter, NULL, runApplication, initialize) == 0);
    while (library->isInitialized() == 0) {
        nanosleep(&pause, NULL);
    }
    return starter;
}

void quitAndJoin(pthread_t starter) {
    void* qt = dlopen("libQt5Core.so.5", RTLD_LAZY | RTLD_NOLOAD);
    CHECK(qt != NULL);
    quitApplicationOf(qt);
    CHECK(dlclose(qt) == 0);
    CHECK(pthread_join(starter, NULL) == 0);
}

const char* drawWith(const Library* library, const char* document, const char* output) {
    const char* path = pathOf(output);
    remove(path);
    void* handler = library->createHandler(document);
    CHECK(handler != NULL);
    CHECK_INT(0, library->createImage(handler, path));
    CHECK_INT(0, library->freeHandler(handler));
    CHECK(exists(path));
    return path;
}

void drawInChildWith(int flags, const char* document, const char* output) {
    const pid_t child = fork();
    if (child == 0) {
        const Library library = loadLibrary(VELNOR_LIBRARY, flags);
        startLoaded(&library);
        drawWith(&library, document, output);
        unloadLibrary(library);
        exit(EXIT_SUCCESS);
    }
    checkChildSucceeds(child);
}
