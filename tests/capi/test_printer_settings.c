/* Printer settings: the whole mapping, and where the values come from. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <limits.h>

enum { Untouched = 4711 };

typedef struct Setting {
    const char* text;
    int value;
} Setting;

#define COUNT(settings) (sizeof(settings) / sizeof *(settings))

static void checkSettings(void* handler, int presentation, int ejectRetract, int timeout) {
    int settings[3] = {Untouched, Untouched, Untouched};
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
    CHECK_INT(presentation, settings[0]);
    CHECK_INT(ejectRetract, settings[1]);
    CHECK_INT(timeout, settings[2]);
}

static void checkDocument(const char* document, int presentation, int ejectRetract, int timeout) {
    void* handler = xmlToImgCreateHandler(document);
    checkSettings(handler, presentation, ejectRetract, timeout);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void checkChildren(const char* children, int presentation, int ejectRetract, int timeout) {
    checkDocument(writeLayout("page.xml", children), presentation, ejectRetract, timeout);
}

CASE(presentation_and_time_out_are_decimal_integers_or_minus_one) {
    const Setting settings[] = {
        {"3", 3},           {"0", 0},
        {"-3", -3},         {"+3", 3},
        {" 20 ", 20},       {"007", 7},
        {"", -1},           {"20s", -1},
        {"2.5", -1},        {"0x10", -1},
        {"three", -1},      {"1 2", -1},
        {"3<b/>", -1},      {"2147483647", INT_MAX},
        {"2147483648", -1}, {"-2147483648", INT_MIN},
    };
    startLibrary();
    for (size_t i = 0; i < COUNT(settings); ++i) {
        const char* text = settings[i].text;
        checkChildren(textOf("<presentation>%s</presentation>", text), settings[i].value, -1, -1);
        checkChildren(textOf("<ejectRetractTimeout>%s</ejectRetractTimeout>", text), -1, -1,
                      settings[i].value);
    }
}

CASE(eject_is_0_and_retract_is_1_and_anything_else_minus_one) {
    const Setting settings[] = {
        {"eject", 0},     {"EJECT", 0},      {" Eject\n", 0}, {"retract", 1},
        {"RETRACT", 1},   {" reTract ", 1},  {"ejected", -1}, {"ejec", -1},
        {"", -1},         {"0", -1},         {"1", -1},       {"eject retract", -1},
        {"re tract", -1}, {"eject<b/>", -1},
    };
    startLibrary();
    for (size_t i = 0; i < COUNT(settings); ++i) {
        checkChildren(textOf("<ejectRetract>%s</ejectRetract>", settings[i].text), -1,
                      settings[i].value, -1);
    }
}

CASE(missing_elements_give_minus_one) {
    startLibrary();
    checkChildren("", -1, -1, -1);
    checkChildren("<Presentation>3</Presentation><ejectretract>eject</ejectretract>", -1, -1, -1);
}

#define ALL                                                                                        \
    "<presentation>3</presentation><ejectRetract> Retract </ejectRetract>"                         \
    "<ejectRetractTimeout>20</ejectRetractTimeout>"

CASE(child_elements_of_the_canvas_are_enough) {
    startLibrary();
    checkChildren(ALL CANVAS_OF(100, 50) BOX, 3, 1, 20);
}

static void setAll(void* handler) {
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "canvas.presentation", "3"));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "canvas.ejectRetract", " Retract "));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "canvas.ejectRetractTimeout", "20"));
}

CASE(object_tags_alone_are_enough) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", BOX));
    setAll(handler);
    checkSettings(handler, 3, 1, 20);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(object_tags_override_the_document_until_they_are_cleared) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(
        writeLayout("page.xml", "<presentation>9</presentation><ejectRetract>eject</ejectRetract>"
                                "<ejectRetractTimeout>9</ejectRetractTimeout>"));
    checkSettings(handler, 9, 0, 9);
    setAll(handler);
    checkSettings(handler, 3, 1, 20);
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "canvas.ejectRetract", "ejected"));
    checkSettings(handler, 3, -1, 20);
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    checkSettings(handler, 9, 0, 9);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(object_links_set_them_too) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(
        writeLayout("page.xml", "<presentation link='mode'>9</presentation>"));
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "canvas.mode", "3"));
    checkSettings(handler, 3, -1, -1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(placeholders_are_replaced_first) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", "<%what%>%mode%</%what%>"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "what", "presentation"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "mode", "4"));
    checkSettings(handler, 4, -1, -1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_first_element_of_the_name_counts_wherever_it_is) {
    startLibrary();
    checkChildren("<VelnorItem class='text' id='t'><presentation>5</presentation></VelnorItem>"
                  "<presentation>6</presentation>",
                  5, -1, -1);
}

/* The settings are found by the canvas's id: one that is missing, empty, outside ASCII, or holds a
 * point names no object. */
CASE(a_canvas_without_a_usable_id_has_none) {
    startLibrary();
    const char* attributes[] = {"", "id=''", "id='a.b'", "id='\xc3\xb6'"};
    for (size_t i = 0; i < sizeof attributes / sizeof *attributes; ++i) {
        checkDocument(writeFile("page.xml", textOf("<VelnorRoot><VelnorItems class='canvas' %s>" ALL
                                                   "</VelnorItems></VelnorRoot>",
                                                   attributes[i])),
                      -1, -1, -1);
    }
}

CASE(an_unusable_document_has_none) {
    startLibrary();
    checkDocument(writeFile("page.xml", ""), -1, -1, -1);
    checkDocument(writeFile("page.xml", "<VelnorRoot><VelnorItems class='canvas' id='a'>" ALL), -1,
                  -1, -1);
    checkDocument(writeFile("page.xml", "<Root><VelnorItems class='canvas' id='a'>" ALL
                                        "</VelnorItems></Root>"),
                  -1, -1, -1);
    checkDocument(writeFile("page.xml", "<VelnorRoot><VelnorItems class='list' id='a'>" ALL
                                        "</VelnorItems></VelnorRoot>"),
                  -1, -1, -1);
    checkDocument(pathOf("missing.xml"), -1, -1, -1);
}

CASE(a_null_handler_fails_and_leaves_the_integers_untouched) {
    int settings[3] = {Untouched, Untouched, Untouched};
    CHECK_INT(-1, xmlToImgGetPrinterSettings(NULL, &settings[0], &settings[1], &settings[2]));
    startLibrary();
    CHECK_INT(-1, xmlToImgGetPrinterSettings(NULL, &settings[0], &settings[1], &settings[2]));
    CHECK_INT(-1, xmlToImgGetPrinterSettings(NULL, NULL, NULL, NULL));
    for (int i = 0; i < 3; ++i) {
        CHECK_INT(Untouched, settings[i]);
    }
}
