/* Documents and parameter files beyond all measure on a thread with a small stack: they do not
 * load, and the thread lives. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdio.h>
#include <string.h>

enum {
    StackSize = 256 * 1024,
    ListSize = 64,
    Many = 40000,
    VeryMany = 1000000,
    AllAttributes = 600000
};

/* Writes the same text as many times as asked. */
static void repeat(FILE* file, const char* text, int count) {
    for (int i = 0; i < count; ++i) {
        fputs(text, file);
    }
}

static FILE* startDocument(const char* name, const char* before) {
    FILE* file = fopen(pathOf(name), "wb");
    CHECK(file != NULL && fputs(before, file) >= 0);
    return file;
}

static const char* endDocument(FILE* file, const char* name) {
    fputs("<VelnorRoot><VelnorItems class='canvas' id='canvas'><width>20</width>"
          "<height>20</height></VelnorItems></VelnorRoot>",
          file);
    CHECK(fclose(file) == 0);
    return pathOf(name);
}

static void* readDocument(void* path) {
    char text[ListSize];
    int settings[3];
    void* handler = xmlToImgCreateHandler(path);
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, text, ListSize));
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, ListSize));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "canvas.link", "1"));
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    return NULL;
}

static void* readParameters(void* path) {
    char tags[ListSize];
    char values[ListSize];
    void* handler = xmlToImgCreateHandler(pathOf("good.xml"));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, path));
    CHECK_INT(-1,
              xmlToImgGetDictionaryFromParamFile(handler, path, tags, ListSize, values, ListSize));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    return NULL;
}

static void onSmallStack(void* (*work)(void*), const char* path) {
    pthread_attr_t attributes;
    pthread_t thread;
    CHECK(pthread_attr_init(&attributes) == 0);
    CHECK(pthread_attr_setstacksize(&attributes, StackSize) == 0);
    CHECK(pthread_create(&thread, &attributes, work, (void*)path) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
    CHECK(pthread_attr_destroy(&attributes) == 0);
}

static void checkRefused(const char* path) {
    startLibrary();
    writeLayout("good.xml", CANVAS_OF(20, 20));
    onSmallStack(readDocument, path);
    CHECK(!exists("page.png"));
    onSmallStack(readParameters, path);
    render("good.xml", "good.png");
    CHECK_INT(20, pngWidth("good.png"));
}

/* Inside the root, so that nothing but the depth is wrong. */
static const char* nested(const char* start, const char* end, int levels) {
    FILE* file = startDocument("deep.xml", "<VelnorRoot><VelnorItems class='canvas' id='canvas'>"
                                           "<width>20</width><height>20</height>");
    repeat(file, start, levels);
    repeat(file, end, levels);
    CHECK(fputs("</VelnorItems></VelnorRoot>", file) >= 0 && fclose(file) == 0);
    return pathOf("deep.xml");
}

CASE(forty_thousand_elements_inside_one_another_do_not_load) {
    checkRefused(nested("<a>", "</a>", Many));
}

CASE(a_million_elements_inside_one_another_do_not_load) {
    checkRefused(nested("<a>", "</a>", VeryMany));
}

CASE(a_million_elements_that_are_never_closed_do_not_load) {
    checkRefused(nested("<a>", "", VeryMany));
}

CASE(groups_of_items_inside_one_another_do_not_load) {
    checkRefused(nested("<VelnorItems class='canvas' id='canvas'>", "</VelnorItems>", Many));
}

CASE(forty_thousand_parameters_inside_one_another_do_not_load) {
    FILE* file = startDocument("deep.xml", "<VelnorParams>");
    repeat(file, "<VelnorParam id='canvas'>", Many);
    repeat(file, "</VelnorParam>", Many);
    CHECK(fputs("</VelnorParams>", file) >= 0 && fclose(file) == 0);
    checkRefused(pathOf("deep.xml"));
}

CASE(hundreds_of_thousands_of_attributes_of_one_element_do_not_load) {
    FILE* file = startDocument("wide.xml", "<VelnorRoot");
    for (int i = 0; i < AllAttributes; ++i) {
        fprintf(file, " a%d=''", i);
    }
    CHECK(fputs("><VelnorItems class='canvas' id='canvas'><width>20</width></VelnorItems>"
                "</VelnorRoot>",
                file) >= 0 &&
          fclose(file) == 0);
    checkRefused(pathOf("wide.xml"));
}

CASE(a_million_empty_elements_beside_one_another_do_not_load) {
    checkRefused(nested("<a/>", "", VeryMany));
}

CASE(forty_thousand_entities_do_not_load) {
    FILE* file = startDocument("doctype.xml", "<!DOCTYPE VelnorRoot [");
    for (int i = 0; i < Many; ++i) {
        fprintf(file, "<!ENTITY e%d 'x'>", i);
    }
    CHECK(fputs("]>", file) >= 0);
    checkRefused(endDocument(file, "doctype.xml"));
}

CASE(entities_that_name_later_ones_do_not_load) {
    FILE* file = startDocument("doctype.xml", "<!DOCTYPE VelnorRoot [");
    for (int i = 0; i < 100; ++i) {
        fprintf(file, "<!ENTITY e%d '&e%d;&e%d;%200s'>", i, i + 1, i + 1, "");
    }
    fprintf(file, "<!ENTITY e100 ''>]><VelnorRoot>&e0;</VelnorRoot>");
    CHECK(fclose(file) == 0);
    checkRefused(pathOf("doctype.xml"));
}

CASE(entities_inside_one_another_do_not_load) {
    FILE* file = startDocument("doctype.xml", "<!DOCTYPE VelnorRoot [<!ENTITY e0 'x'>");
    for (int i = 1; i <= Many; ++i) {
        fprintf(file, "<!ENTITY e%d '&e%d;&e%d;'>", i, i - 1, i - 1);
    }
    fprintf(file, "]><VelnorRoot>&e%d;</VelnorRoot>", Many);
    CHECK(fclose(file) == 0);
    checkRefused(pathOf("doctype.xml"));
}

CASE(an_entity_inside_itself_does_not_load) {
    const char* document = "<!DOCTYPE VelnorRoot [<!ENTITY a '&b;'><!ENTITY b '&a;'>]>"
                           "<VelnorRoot>&a;</VelnorRoot>";
    checkRefused(writeFile("doctype.xml", document));
}

CASE(content_models_inside_one_another_do_not_load) {
    FILE* file = startDocument("doctype.xml", "<!DOCTYPE VelnorRoot [<!ELEMENT VelnorRoot ");
    repeat(file, "(", VeryMany);
    CHECK(fputs("a", file) >= 0);
    repeat(file, ")", VeryMany);
    CHECK(fputs(">]>", file) >= 0);
    checkRefused(endDocument(file, "doctype.xml"));
}

CASE(content_models_that_begin_in_a_parameter_entity_do_not_load) {
    FILE* file = startDocument("doctype.xml", "<!DOCTYPE VelnorRoot [<!ENTITY % begin "
                                              "'&#60;!ELEMENT VelnorRoot '> %begin;");
    repeat(file, "(", VeryMany);
    CHECK(fputs("a", file) >= 0);
    repeat(file, ")", VeryMany);
    CHECK(fputs(">]>", file) >= 0);
    checkRefused(endDocument(file, "doctype.xml"));
}
