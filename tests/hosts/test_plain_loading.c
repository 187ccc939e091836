/* What a program can do with the library only where no sanitizer is in the process: a sanitizer brings
 * a C++ runtime, and has to come before the library in the order of symbols. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/loaded_library.h"

#include <dlfcn.h>

CASE(a_program_without_a_c_plus_plus_runtime_loads_the_library) {
    CHECK(dlopen("libstdc++.so.6", RTLD_LAZY | RTLD_NOLOAD) == NULL);
    const Library library = loadLibrary(VELNOR_LIBRARY, RTLD_NOW);
    startLoaded(&library);
    drawWith(&library, TICKET, "drawn.png");
}

CASE(a_library_that_prefers_its_own_symbols_draws_the_same) {
    drawInChildWith(RTLD_NOW | RTLD_LOCAL, TICKET, "now-and-local.png");
    drawInChildWith(RTLD_NOW | RTLD_DEEPBIND, TICKET, "deeply.png");
    drawInChildWith(RTLD_LAZY | RTLD_DEEPBIND, TICKET, "deeply-and-lazily.png");
    CHECK(sameContent("now-and-local.png", "deeply.png"));
    CHECK(sameContent("now-and-local.png", "deeply-and-lazily.png"));
}
