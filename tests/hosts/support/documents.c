#include "support/documents.h"

#include "support/files.h"
#include "support/harness.h"

#include <velnorxmltoimg.h>

#include <glob.h>
#include <stdio.h>
#include <string.h>

static Documents documentsOf(const char* pattern) {
    glob_t found;
    if (glob(pattern, 0, NULL, &found) != 0) {
        failCase(__FILE__, __LINE__, "no documents %s", pattern);
    }
    const Documents documents = {caseMemory(found.gl_pathc * sizeof(char*)), found.gl_pathc};
    for (size_t i = 0; i < found.gl_pathc; ++i) {
        documents.paths[i] = textOf("%s", found.gl_pathv[i]);
    }
    globfree(&found);
    return documents;
}

Documents goldenDocuments(const char* pattern) {
    return documentsOf(textOf("%s/%s.xml", VELNOR_GOLDEN_CASES, pattern));
}

Documents exampleDocuments(void) {
    return documentsOf(VELNOR_EXAMPLE_LAYOUTS "/*.xml");
}

void* handlerOf(const char* document) {
    const int isGolden = strstr(document, VELNOR_GOLDEN_CASES) == document;
    void* handler = xmlToImgCreateHandlerWithDirs(document, isGolden ? VELNOR_GOLDEN_IMAGES : NULL,
                                                  isGolden ? VELNOR_TEST_FONTS : NULL);
    CHECK(handler != NULL);
    return handler;
}

const char* drawDocument(const char* document, const char* output) {
    const char* path = pathOf(output);
    remove(path);
    void* handler = handlerOf(document);
    CHECK_INT(0, xmlToImgCreateImage(handler, path));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    return path;
}

void checkDraws(const char* document, const char* expected) {
    const char* drawn = drawDocument(document, "drawn.png");
    if (!exists(drawn) || !sameContent(expected, drawn)) {
        failCase(__FILE__, __LINE__, "%s differs", document);
    }
}
