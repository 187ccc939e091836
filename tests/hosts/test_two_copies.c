/* Two copies of the library's file in one process: two libraries, one Qt. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/loaded_library.h"

#include <dlfcn.h>
#include <stdio.h>

typedef struct Copies {
    Library one;
    Library other;
} Copies;

static const char* copyOfLibrary(void) {
    const Content library = readFile(VELNOR_LIBRARY);
    const char* path = pathOf("copy.so");
    FILE* file = fopen(path, "wb");
    CHECK(file != NULL && fwrite(library.bytes, 1, library.size, file) == library.size);
    CHECK(fclose(file) == 0);
    return path;
}

static Copies loadCopies(int flags) {
    const Copies copies = {loadLibrary(VELNOR_LIBRARY, flags), loadLibrary(copyOfLibrary(), flags)};
    CHECK(copies.one.createHandler != copies.other.createHandler);
    return copies;
}

/* The first makes the application, the second finds it. */
static pthread_t startBoth(const Copies* copies) {
    const pthread_t starter = startLoaded(&copies->one);
    copies->other.initialize();
    CHECK_INT(1, copies->other.isInitialized());
    return starter;
}

CASE(the_second_copy_finds_the_application_of_the_first) {
    const Copies copies = loadCopies(RTLD_NOW | RTLD_LOCAL);
    const pthread_t starter = startLoaded(&copies.one);
    CHECK_INT(0, copies.other.isInitialized());
    copies.other.initialize();
    CHECK_INT(1, copies.other.isInitialized());
    CHECK_INT(1, *copies.one.startedByLibrary);
    CHECK_INT(0, *copies.other.startedByLibrary);
    quitAndJoin(starter);
    CHECK_INT(0, copies.one.isInitialized());
    CHECK_INT(0, copies.other.isInitialized());
}

CASE(the_second_copy_makes_the_next_application) {
    const Copies copies = loadCopies(RTLD_NOW | RTLD_LOCAL);
    quitAndJoin(startBoth(&copies));
    const pthread_t starter = startLoaded(&copies.other);
    CHECK_INT(1, *copies.other.startedByLibrary);
    drawWith(&copies.other, TICKET, "other.png");
    copies.one.initialize();
    drawWith(&copies.one, TICKET, "one.png");
    CHECK(sameContent("one.png", "other.png"));
    quitAndJoin(starter);
}

static void checkBothDrawTheSame(int flags) {
    const Copies copies = loadCopies(flags);
    const pthread_t starter = startBoth(&copies);
    drawWith(&copies.one, TICKET, "one.png");
    drawWith(&copies.other, TICKET, "other.png");
    CHECK(sameContent("one.png", "other.png"));
    quitAndJoin(starter);
    unloadLibrary(copies.other);
    unloadLibrary(copies.one);
}

CASE(both_copies_draw_the_same) {
    checkBothDrawTheSame(RTLD_NOW | RTLD_LOCAL);
}

CASE(both_copies_draw_the_same_when_their_symbols_are_for_all) {
    checkBothDrawTheSame(RTLD_LAZY | RTLD_GLOBAL);
}

CASE(unloading_one_copy_leaves_the_other) {
    const Copies copies = loadCopies(RTLD_NOW | RTLD_LOCAL);
    const pthread_t starter = startBoth(&copies);
    drawWith(&copies.one, TICKET, "before.png");
    unloadLibrary(copies.other);
    drawWith(&copies.one, TICKET, "after.png");
    CHECK(sameContent("before.png", "after.png"));
    quitAndJoin(starter);
}

static int knowsSans(const Library* library, void* handler) {
    int bold = 0;
    int italic = 0;
    return library->getFontProperty(handler, "Liberation Sans", &bold, &italic) == 0;
}

CASE(freeing_a_handler_of_one_copy_leaves_the_fonts_of_the_other) {
    const Copies copies = loadCopies(RTLD_NOW | RTLD_LOCAL);
    const pthread_t starter = startBoth(&copies);
    void* ofOther = copies.other.createHandler(TICKET);
    void* ofOne = copies.one.createHandler(TICKET);
    CHECK_INT(0, copies.one.freeHandler(ofOne));
    CHECK(knowsSans(&copies.other, ofOther));
    CHECK_INT(0, copies.other.freeHandler(ofOther));
    ofOne = copies.one.createHandler("/no/such/document.xml");
    CHECK(!knowsSans(&copies.one, ofOne));
    CHECK_INT(0, copies.one.freeHandler(ofOne));
    quitAndJoin(starter);
}
