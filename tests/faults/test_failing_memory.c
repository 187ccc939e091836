/* One allocation after the other fails while the library works. Qt and the libraries below it do not
 * survive all of that; what is the library's own does. Whoever lives works as before, but for texts:
 * Qt and fontconfig may keep what they could not find.
 *
 * Each case prints how many tries ended the process, and in whose code. */
#include "support/children.h"
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/memory_sweep.h"

#include <velnorxmltoimg.h>

#include <stdio.h>

enum { ListSize = 1024 };

#define SHAPES                                                                                     \
    BOX "<VelnorItem class='ellipse'><x>100</x><y>10</y><width>60</width><height>50</height>"      \
        "<rotation>20</rotation></VelnorItem>"                                                     \
        "<VelnorItem class='line'><x>5</x><y>90</y><length>150</length></VelnorItem>"
#define CODES                                                                                      \
    QR_CODE "<VelnorItem class='barcode' id='bars'><x>10</x><y>50</y><width>70</width>"            \
            "<height>40</height><type>20</type><hrt>1</hrt><text>4711</text></VelnorItem>"
#define PICTURES                                                                                   \
    "<VelnorItem class='image'><x>20</x><y>5</y><filepath>shown.png</filepath></VelnorItem>"       \
    "<VelnorItem class='image'><x>80</x><y>5</y><width>60</width><height>90</height>"              \
    "<aspect>2</aspect><rotation>20</rotation><filepath>shown.png</filepath></VelnorItem>"

static void* handler;
static const char* document;
static const char* parameters;
static const char* output;

static void prepare(const char* children) {
    hideSystemFonts();
    startLibrary();
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    renderInChild(writeLayout("shown.xml", CANVAS_OF(50, 60) BOX), "shown.png");
    document = writeLayout("page.xml", textOf(CANVAS_OF(200, 100) "%s", children));
    renderInChild(document, "expected.png");
    parameters = writeFile("params.xml", "<VelnorParams><VelnorParam id='box'><width>70</width>"
                                         "<height>20</height></VelnorParam></VelnorParams>");
    output = pathOf("page.png");
    handler = xmlToImgCreateHandler(document);
    CHECK(handler != NULL);
}

/* By a new handler, which makes Qt look for its fonts again. */
static int drawsAsBefore(void) {
    void* fresh = xmlToImgCreateHandler(document);
    return fresh != NULL && xmlToImgCreateImage(fresh, output) == 0 && exists(output) &&
           sameContent(output, "expected.png");
}

static SweepResult sweepTexts(const char* name, const char* children, void (*call)(void)) {
    prepare(children);
    const MemorySweep calls = {name, call, drawsAsBefore};
    const SweepResult result = sweepMemory(&calls);
    CHECK(result.tries > 0);
    CHECK_INT(0, result.deathsInOurCode);
    CHECK_INT(0, result.aborts);
    return result;
}

static SweepResult sweep(const char* name, const char* children, void (*call)(void)) {
    const SweepResult result = sweepTexts(name, children, call);
    CHECK_INT(0, result.notAsBefore);
    return result;
}

static void drawImage(void) {
    xmlToImgCreateImage(handler, output);
}

CASE(drawing_shapes_never_dies_in_the_library_itself) {
    sweep("shapes", SHAPES, drawImage);
}

CASE(drawing_barcodes_never_dies_in_the_library_itself) {
    sweep("barcodes", CODES, drawImage);
}

CASE(drawing_pictures_never_dies_in_the_library_itself) {
    sweep("pictures", PICTURES, drawImage);
}

CASE(drawing_texts_never_dies_in_the_library_itself) {
    sweepTexts("texts", LABEL, drawImage);
}

static void queryDocument(void) {
    static char messages[ListSize];
    int settings[3];
    xmlToImgCheckCorrect(handler, messages, ListSize);
    xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]);
}

CASE(queries_of_documents_never_die_in_the_library_itself) {
    sweepTexts("document queries", SHAPES CODES LABEL PICTURES, queryDocument);
}

static const unsigned short wideName[] = {'b', 'o', 'x', '.', 'w', 'i', 'd', 't', 'h', 0};

static void setTags(void) {
    xmlToImgSetTagDictionary(handler, "tag", "value");
    xmlToImgSetTagDictionaryUnicode(handler, wideName, -1, wideName, -1);
    xmlToImgSetObjectTagDictionary(handler, "box.width", "70");
    xmlToImgSetObjectTagDictionaryUnicode(handler, wideName, -1, wideName, -1);
    xmlToImgClearAllDictionary(handler);
}

CASE(setting_tags_never_dies) {
    CHECK_INT(0, sweep("tags", SHAPES, setTags).deaths);
}

static void useObjects(void) {
    static char text[ListSize];
    static unsigned short wide[ListSize];
    xmlToImgSetObjectTagDictionary(handler, "box.width", "70");
    xmlToImgSetObjectLinkDictionary(handler, "box.link", "70");
    xmlToImgGetObjectTagDictionary(handler, "box.width", text, ListSize);
    xmlToImgGetObjectTagDictionaryUnicode(handler, wideName, -1, wide, ListSize);
}

CASE(setting_and_reading_objects_never_dies_in_the_library_itself) {
    sweep("objects", SHAPES, useObjects);
}

static void useParameterFile(void) {
    static char tags[ListSize];
    static char values[ListSize];
    xmlToImgSetDictionaryFromParamFile(handler, parameters);
    xmlToImgGetDictionaryFromParamFile(handler, parameters, tags, ListSize, values, ListSize);
}

CASE(reading_parameter_files_never_dies_in_the_library_itself) {
    sweep("parameter files", SHAPES, useParameterFile);
}

static void makeHandler(void) {
    xmlToImgFreeHandler(xmlToImgCreateHandler(document));
}

CASE(handlers_with_fonts_never_die_in_the_library_itself) {
    sweep("handlers", SHAPES, makeHandler);
}

static void freeHandler(void) {
    xmlToImgFreeHandler(handler);
}

CASE(freeing_a_handler_never_dies_in_the_library_itself) {
    sweep("freeing a handler", SHAPES, freeHandler);
}

static void queryFonts(void) {
    int bold = 0;
    int italic = 0;
    xmlToImgFreeFontList(xmlToImgAvailableFontList());
    xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic);
    xmlToImgGetFontProperty(handler, "No Such Family", &bold, &italic);
}

CASE(queries_of_fonts_never_die_in_the_library_itself) {
    sweepTexts("font queries", SHAPES, queryFonts);
}
