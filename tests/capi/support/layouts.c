#include "layouts.h"

#include "files.h"
#include "harness.h"

#include <velnorxmltoimg.h>

#include <stdio.h>

const char* writeLayout(const char* name, const char* children) {
    return writeFile(name, textOf("<?xml version='1.0' encoding='UTF-8'?>\n"
                                  "<VelnorRoot><VelnorItems class='canvas' id='canvas'>"
                                  "%s</VelnorItems></VelnorRoot>\n",
                                  children));
}

const char* render(const char* document, const char* output) {
    const char* path = pathOf(output);
    void* handler = xmlToImgCreateHandler(pathOf(document));
    CHECK(handler != NULL);
    CHECK_INT(0, xmlToImgCreateImage(handler, path));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    return path;
}

const char* renderLayout(const char* name, const char* children) {
    const char* document = writeLayout(textOf("%s.xml", name), children);
    return render(document, textOf("%s.png", name));
}

int drawnWidth(void* handler) {
    const char* output = pathOf("drawn.png");
    remove(output);
    CHECK_INT(0, xmlToImgCreateImage(handler, output));
    return exists(output) ? pngWidth(output) : 0;
}
