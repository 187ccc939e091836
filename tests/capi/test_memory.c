/* Where memory runs out, a function gives its failure value, and the handler can be used again. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <stdio.h>
#include <string.h>
#include <sys/resource.h>
#include <unistd.h>

/* A call is begun with 16 MiB to spare. */
enum { LongText = 12 * 1024 * 1024, Spare = 20 * 1024 * 1024 };

static char* longText(void) {
    char* text = caseMemory(LongText + 1);
    memset(text, 'x', LongText);
    return text;
}

static const unsigned short* longWideText(void) {
    unsigned short* text = caseMemory((LongText + 1) * sizeof *text);
    for (int i = 0; i < LongText; ++i) {
        text[i] = 'x';
    }
    return text;
}

/* Leaves the process too little memory for another copy of a long text. */
static void limitMemory(void) {
    long pages = 0;
    FILE* file = fopen("/proc/self/statm", "r");
    CHECK(file != NULL && fscanf(file, "%ld", &pages) == 1 && fclose(file) == 0);
    const rlim_t used = (rlim_t)(pages * sysconf(_SC_PAGESIZE));
    const struct rlimit limit = {used + Spare, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_AS, &limit) == 0);
}

static void allowAllMemory(void) {
    const struct rlimit limit = {RLIM_INFINITY, RLIM_INFINITY};
    CHECK(setrlimit(RLIMIT_AS, &limit) == 0);
}

CASE(creators_give_null_when_memory_runs_out) {
    startLibrary();
    const char* text = longText();
    const unsigned short* wide = longWideText();
    limitMemory();
    CHECK(xmlToImgCreateHandler(text) == NULL);
    CHECK(xmlToImgCreateHandlerUnicode(wide, UpToZero) == NULL);
    CHECK(xmlToImgCreateHandlerUnicode(wide, LongText) == NULL);
    CHECK(xmlToImgCreateHandlerWithDirs("page.xml", text, NULL) == NULL);
    CHECK(xmlToImgCreateHandlerWithDirs("page.xml", NULL, text) == NULL);
    CHECK(xmlToImgCreateHandlerWithDirsUnicode(NULL, 0, NULL, 0, wide, UpToZero) == NULL);
}

CASE(setters_fail_when_memory_runs_out) {
    startLibrary();
    const char* text = longText();
    const unsigned short* wide = longWideText();
    const unsigned short* name = wideOf("canvas.width");
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", CANVAS_OF(50, 20)));
    limitMemory();
    CHECK_INT(-1, xmlToImgSetTagDictionary(handler, "tag", text));
    CHECK_INT(-1, xmlToImgSetTagDictionary(handler, text, "value"));
    CHECK_INT(-1, xmlToImgSetTagDictionaryUnicode(handler, name, UpToZero, wide, UpToZero));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(handler, "canvas.width", text));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionaryUnicode(handler, name, UpToZero, wide, UpToZero));
    CHECK_INT(-1, xmlToImgSetPluginPathUnicode(wide, UpToZero));
    allowAllMemory();
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_document_that_does_not_fit_into_memory_fails) {
    startLibrary();
    const char* children = textOf(CANVAS_OF(50, 20) "<text>%s</text>", longText());
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", children));
    limitMemory();
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(handler, "canvas.width", NULL, 0));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "canvas.width", "60"));
    CHECK_INT(-1, xmlToImgCreateImage(handler, pathOf("page.png")));
    CHECK(!exists("page.png"));
    allowAllMemory();
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "canvas.width", NULL, 0));
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(queries_of_a_document_that_does_not_fit_into_memory_fail) {
    startLibrary();
    const char* children = textOf(CANVAS_OF(50, 20) "<text>%s</text>", longText());
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", children));
    int settings[3] = {0, 0, 0};
    limitMemory();
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, NULL, 0));
    CHECK_INT(-1, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
    allowAllMemory();
    CHECK_INT(0, xmlToImgCheckCorrect(handler, NULL, 0));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_parameter_file_that_does_not_fit_into_memory_fails) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", CANVAS_OF(50, 20)));
    const char* params =
        writeFile("params.xml", textOf("<VelnorParams><VelnorParam id='canvas'><width>%s</width>"
                                       "</VelnorParam></VelnorParams>",
                                       longText()));
    const unsigned short* wide = wideOf(params);
    unsigned short list[8];
    limitMemory();
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, params));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFileUnicode(handler, wide, UpToZero));
    CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(handler, params, NULL, 0, NULL, 0));
    CHECK_INT(-1,
              xmlToImgGetDictionaryFromParamFileUnicode(handler, wide, UpToZero, list, list, 8));
    allowAllMemory();
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
