/* Programs in C that load the library at run time, and unload it, in every order. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/loaded_library.h"
#include "support/process.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

enum { Loads = 20 };

CASE(a_library_that_was_unloaded_and_loaded_again_is_still_up) {
    const Library first = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    const pthread_t starter = startLoaded(&first);
    drawWith(&first, TICKET, "first.png");
    unloadLibrary(first);
    const Library second = loadLibrary(VELNOR_LIBRARY, RTLD_LAZY);
    CHECK_INT(1, second.isInitialized());
    CHECK_INT(1, *second.startedByLibrary);
    drawWith(&second, TICKET, "second.png");
    CHECK(sameContent("first.png", "second.png"));
    quitAndJoin(starter);
    unloadLibrary(second);
}

CASE(the_library_may_be_unloaded_while_its_event_loop_runs) {
    const Library library = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    const pthread_t starter = startLoaded(&library);
    unloadLibrary(library);
    quitAndJoin(starter);
}

CASE(a_program_may_end_after_it_unloaded_the_library_whose_event_loop_runs) {
    const Library library = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    startLoaded(&library);
    drawWith(&library, TICKET, "drawn.png");
    unloadLibrary(library);
    exit(EXIT_SUCCESS);
}

CASE(the_library_may_be_loaded_and_unloaded_without_use_again_and_again) {
    const char* files = openFiles();
    for (int i = 0; i < Loads; ++i) {
        const Library library = loadLibrary(VELNOR_LIBRARY, i % 2 == 0 ? RTLD_NOW : RTLD_LAZY);
        CHECK_INT(0, library.isInitialized());
        unloadLibrary(library);
    }
    CHECK_TEXT(files, openFiles());
    const Library library = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    startLoaded(&library);
    drawWith(&library, TICKET, "drawn.png");
}

CASE(a_handler_may_be_used_and_freed_after_the_library_was_loaded_again) {
    const Library first = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    startLoaded(&first);
    drawWith(&first, TICKET, "first.png");
    void* handler = first.createHandler(TICKET);
    unloadLibrary(first);
    const Library second = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    CHECK_INT(0, second.createImage(handler, pathOf("second.png")));
    CHECK_INT(0, second.freeHandler(handler));
    CHECK(sameContent("first.png", "second.png"));
    unloadLibrary(second);
}

CASE(a_library_that_was_loaded_twice_stays_until_it_is_unloaded_twice) {
    const Library first = loadLibrary(VELNOR_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    const Library second = loadLibrary(VELNOR_LIBRARY, RTLD_LAZY | RTLD_GLOBAL);
    CHECK(first.createHandler == second.createHandler);
    unloadLibrary(first);
    const pthread_t starter = startLoaded(&second);
    drawWith(&second, TICKET, "drawn.png");
    quitAndJoin(starter);
    unloadLibrary(second);
}

static Library loadedByThread;

static void* loadOnThread(void* unused) {
    loadedByThread = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    return unused;
}

CASE(the_thread_that_loads_the_library_may_end) {
    pthread_t loading;
    CHECK(pthread_create(&loading, NULL, loadOnThread, NULL) == 0);
    CHECK(pthread_join(loading, NULL) == 0);
    const pthread_t starter = startLoaded(&loadedByThread);
    drawWith(&loadedByThread, TICKET, "first.png");
    drawWith(&loadedByThread, TICKET, "second.png");
    CHECK(sameContent("first.png", "second.png"));
    quitAndJoin(starter);
    unloadLibrary(loadedByThread);
}

static int handlersAtExit;

static void countExit(void) {
    ++handlersAtExit;
}

static void checkExits(void) {
    if (handlersAtExit != 2) {
        _exit(EXIT_FAILURE);
    }
}

CASE(exit_handlers_of_before_and_after_the_library_was_loaded_all_run) {
    CHECK(atexit(checkExits) == 0);
    CHECK(atexit(countExit) == 0);
    const Library library = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    startLoaded(&library);
    drawWith(&library, TICKET, "drawn.png");
    CHECK(atexit(countExit) == 0);
    unloadLibrary(library);
    exit(EXIT_SUCCESS);
}
