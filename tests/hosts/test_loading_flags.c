/* The ways to load a library that dlopen(3) offers: the picture is the same. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/loaded_library.h"

#include <dlfcn.h>

static void checkDrawsTheSameWith(int flags) {
    drawInChildWith(RTLD_NOW | RTLD_LOCAL, TICKET, "now-and-local.png");
    drawInChildWith(flags, TICKET, "otherwise.png");
    CHECK(sameContent("now-and-local.png", "otherwise.png"));
}

CASE(lazy_binding_draws_the_same) {
    checkDrawsTheSameWith(RTLD_LAZY | RTLD_LOCAL);
}

CASE(symbols_for_all_draw_the_same) {
    checkDrawsTheSameWith(RTLD_NOW | RTLD_GLOBAL);
    checkDrawsTheSameWith(RTLD_LAZY | RTLD_GLOBAL);
}

CASE(a_library_that_is_never_to_be_unloaded_draws_the_same) {
    checkDrawsTheSameWith(RTLD_NOW | RTLD_NODELETE);
}
