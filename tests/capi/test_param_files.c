/* Parameter files applied to a handler. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <stdio.h>

enum { TextSize = 128 };

#define TICKET "\xf0\x9f\x8e\xab"
#define ENTRY(id, values) "<VelnorParam id='" id "'>" values "</VelnorParam>"
#define PARAMS(entries) "<VelnorParams>" entries "</VelnorParams>"

/* A handler of a document with a link and two texts. */
static void* handlerOfDocument(void) {
    startLibrary();
    return xmlToImgCreateHandler(
        writeLayout("page.xml", "<VelnorItem class='text' id='ticket'>"
                                "<text link='price'>old price</text><note>old note</note>"
                                "</VelnorItem><VelnorItem class='text' id='bill'>"
                                "<text>old bill</text></VelnorItem>"));
}

static void checkValue(void* handler, const char* name, const char* expected) {
    char value[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, name, value, TextSize));
    CHECK_TEXT(expected, value);
}

static void checkUnchanged(void* handler) {
    checkValue(handler, "ticket.text", "old price");
    checkValue(handler, "ticket.note", "old note");
    checkValue(handler, "bill.text", "old bill");
}

static int apply(void* handler, const char* content) {
    return xmlToImgSetDictionaryFromParamFile(handler, writeFile("params.xml", content));
}

CASE(values_are_set_by_link_and_by_element_name) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<price>12.50</price><note>new</note>")
                                           ENTRY("bill", "<text>paid</text>"))));
    checkValue(handler, "ticket.text", "12.50");
    checkValue(handler, "ticket.note", "new");
    checkValue(handler, "bill.text", "paid");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "any", "thing"));
    checkUnchanged(handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(values_show_in_the_picture) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(
        writeLayout("page.xml", "<width link='w'>50</width><height>20</height>"));
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("canvas", "<w>77</w>"))));
    CHECK_INT(77, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_whose_element_is_missing_makes_it) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("bill", "<hidden>1</hidden>"))));
    checkValue(handler, "bill.hidden", "1");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(paths_in_utf16_end_at_their_zero_or_at_their_length) {
    const char* name = TICKET "-\xe2\x82\xac.xml";
    const char* path = writeFile(name, PARAMS(ENTRY("bill", "<text>wide</text>")));
    const unsigned short* wide = wideOf(path);
    const struct {
        const unsigned short* path;
        int length;
        int result;
    } rows[] = {
        {wide, UpToZero, 0},
        {wide, -7, 0},
        {wide, wideLength(wide), 0},
        {wideWithTail(path), wideLength(wide), 0},
        {wideWithTail(path), -1, -1},
        {wide, wideLength(wide) - 1, -1},
        {wide, 0, -1},
        {NULL, UpToZero, -1},
        {NULL, 9, -1},
        {wideOf(""), UpToZero, -1},
    };
    void* handler = handlerOfDocument();
    for (size_t i = 0; i < sizeof rows / sizeof *rows; ++i) {
        CHECK_INT(rows[i].result,
                  xmlToImgSetDictionaryFromParamFileUnicode(handler, rows[i].path, rows[i].length));
        checkValue(handler, "bill.text", rows[i].result == 0 ? "wide" : "old bill");
        CHECK_INT(0, xmlToImgClearAllDictionary(handler));
        CHECK_INT(0, xmlToImgSetTagDictionary(handler, "any", "thing"));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_broken_file_fails_and_stores_nothing) {
    const char* broken[] = {
        "",
        "price=12.50",
        "<VelnorParams>" ENTRY("bill", "<text>new</text>"),
        "<VelnorParams>" ENTRY("bill", "<text>new</text>") "</VelnorParam>",
        "<VelnorParam id='bill'><text>new</text></VelnorParam>",
        "<velnorparams>" ENTRY("bill", "<text>new</text>") "</velnorparams>",
        "<VelnorRoot>" ENTRY("bill", "<text>new</text>") "</VelnorRoot>",
        PARAMS(""),
        PARAMS("<velnorparam id='bill'><text>new</text></velnorparam>"),
    };
    captureOutput();
    void* handler = handlerOfDocument();
    for (size_t i = 0; i < sizeof broken / sizeof *broken; ++i) {
        CHECK_INT(-1, apply(handler, broken[i]));
        const unsigned short* path = wideOf(pathOf("params.xml"));
        CHECK_INT(-1, xmlToImgSetDictionaryFromParamFileUnicode(handler, path, UpToZero));
    }
    checkUnchanged(handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}

CASE(a_missing_file_fails_in_silence) {
    captureOutput();
    void* handler = handlerOfDocument();
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, pathOf("missing.xml")));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, scratchFolder()));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, ""));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, NULL));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}

CASE(entries_with_an_unusable_id_are_passed_over) {
    void* handler = handlerOfDocument();
    CHECK_INT(0,
              apply(handler, PARAMS("<VelnorParam><text>no id</text></VelnorParam>" ENTRY(
                                 "", "<text>empty id</text>") ENTRY("bill.x", "<text>point</text>")
                                        ENTRY("ticket", "<note>new</note>"))));
    checkValue(handler, "ticket.note", "new");
    checkValue(handler, "bill.text", "old bill");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(entries_without_any_value_succeed) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, PARAMS("<VelnorParam/>")));
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("bill", ""))));
    checkUnchanged(handler);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(values_are_all_the_text_of_their_element) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<price>1<b>2<i>3</i></b><!--x-->4</price>"
                                                       "<note><![CDATA[<&>]]> &lt;</note>"))));
    checkValue(handler, "ticket.text", "1234");
    checkValue(handler, "ticket.note", "<&> <");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(values_are_not_substituted_by_tags_of_the_parameter_file) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "v", "tag"));
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<note>%v%</note>"))));
    checkValue(handler, "ticket.note", "%v%");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(values_are_utf8_whatever_the_encoding_of_the_file) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, "<?xml version='1.0' encoding='ISO-8859-1'?>" PARAMS(
                                    ENTRY("ticket", "<note>\xfc</note>"))));
    checkValue(handler, "ticket.note", "\xc3\xbc");
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<note>" TICKET "</note>"))));
    checkValue(handler, "ticket.note", TICKET);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* Names are written as UTF-8 and read as Latin-1. */
CASE(names_outside_ascii_do_not_match_the_document) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout(
        "page.xml", "<VelnorItem class='text' id='\xc3\xb6'><text>old</text></VelnorItem>"));
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("\xc3\xb6", "<text>new</text>"))));
    checkValue(handler, "\xf6.text", "old");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_second_file_adds_to_the_first) {
    void* handler = handlerOfDocument();
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<price>1</price><note>1</note>"))));
    CHECK_INT(0, apply(handler, PARAMS(ENTRY("ticket", "<price>2</price>"))));
    checkValue(handler, "ticket.text", "2");
    checkValue(handler, "ticket.note", "1");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static FILE* start(const char* name, const char* before) {
    FILE* file = fopen(pathOf(name), "wb");
    CHECK(file != NULL && fputs(before, file) >= 0);
    return file;
}

static const char* end(FILE* file, const char* name, const char* after) {
    CHECK(fputs(after, file) >= 0 && fclose(file) == 0);
    return pathOf(name);
}

CASE(twenty_thousand_values_are_set) {
    enum { Count = 20000 };
    startLibrary();
    FILE* page = start("many.xml", "<r><VelnorItems class='canvas' id='canvas'>");
    FILE* params = start("params.xml", "<VelnorParams>");
    for (int i = 0; i < Count; ++i) {
        fprintf(page, "<VelnorItem class='text' id='i%d'><text link='l'>old</text></VelnorItem>",
                i);
        fprintf(params, ENTRY("i%d", "<l>new %d</l>"), i, i);
    }
    void* handler = xmlToImgCreateHandler(end(page, "many.xml", "</VelnorItems></r>"));
    const char* path = end(params, "params.xml", "</VelnorParams>");
    CHECK_INT(0, xmlToImgSetDictionaryFromParamFile(handler, path));
    checkValue(handler, "i0.text", "new 0");
    checkValue(handler, "i19999.text", "new 19999");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_handler_fails) {
    const char* path = writeFile("params.xml", PARAMS(ENTRY("bill", "<text>new</text>")));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(NULL, path));
    startLibrary();
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(NULL, path));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(NULL, NULL));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFileUnicode(NULL, wideOf(path), UpToZero));
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFileUnicode(NULL, NULL, 4));
}
