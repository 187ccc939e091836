/* Object links: texts of elements set by the value of their attribute "link". */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#define LINKED                                                                                     \
    CANVAS_OF(50, 20)                                                                              \
    "<VelnorItem class='text' id='box'><title link='caption'>old</title><empty link='void'/>"      \
    "<mixed link='mixed'>a<b/></mixed></VelnorItem>"

enum { TextSize = 256 };

static void* handlerOf(const char* children) {
    startLibrary();
    return xmlToImgCreateHandler(writeLayout("page.xml", children));
}

static void checkProperty(void* handler, const char* name, const char* expected) {
    char text[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, name, text, TextSize));
    CHECK_TEXT(expected, text);
}

static void checkLinked(void* handler, const char* name, const char* expected) {
    char text[TextSize];
    CHECK_INT(0, xmlToImgGetObjectLinkDictionary(handler, name, text, TextSize));
    CHECK_TEXT(expected, text);
}

CASE(a_link_sets_the_element_that_bears_it) {
    void* handler = handlerOf(LINKED);
    checkLinked(handler, "box.caption", "old");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "box.caption", "a < b"));
    checkLinked(handler, "box.caption", "a < b");
    checkProperty(handler, "box.title", "a < b");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_changes_the_picture) {
    void* handler = handlerOf("<width link='w'>50</width><height>20</height>");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "canvas.w", "99"));
    CHECK_INT(99, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_empty_linked_element_receives_the_value) {
    void* handler = handlerOf(LINKED);
    checkLinked(handler, "box.void", "");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "box.void", "new"));
    checkLinked(handler, "box.void", "new");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "box.void", NULL));
    checkLinked(handler, "box.void", "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_that_the_document_has_not_is_refused) {
    void* handler = handlerOf(LINKED);
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.title", "new"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "nobody.caption", "new"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.Caption", "new"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.", "new"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, ".caption", "new"));
    checkProperty(handler, "box.title", "old");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_linked_element_that_holds_elements_is_refused) {
    void* handler = handlerOf(LINKED);
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.mixed", "new"));
    CHECK_INT(-1, xmlToImgGetObjectLinkDictionary(handler, "box.mixed", NULL, 0));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_name_with_two_points_or_more_is_refused) {
    void* handler = handlerOf(LINKED);
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.caption.x", "new"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "..", "new"));
    checkProperty(handler, "box.title", "old");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(nothing_is_stored_while_the_document_is_missing) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.caption", "new"));
    writeLayout("page.xml", LINKED);
    checkLinked(handler, "box.caption", "old");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "box.caption", "new"));
    checkLinked(handler, "box.caption", "new");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(nothing_is_stored_while_the_document_is_malformed) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeFile("page.xml", "<VelnorRoot>"));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.caption", "new"));
    writeLayout("page.xml", LINKED);
    checkLinked(handler, "box.caption", "old");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_name_without_a_point_sets_a_placeholder) {
    void* handler = handlerOf("<width>%w%</width><height>20</height>");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "w", "44"));
    CHECK_INT(44, drawnWidth(handler));
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, NULL, "x"));
    CHECK_INT(44, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* The link is stored as the name of its element. */
CASE(the_value_lands_in_an_earlier_element_of_the_same_name) {
    void* handler = handlerOf("<VelnorItem class='text' id='box'><title>first</title>"
                              "<title link='caption'>second</title></VelnorItem>");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionary(handler, "box.caption", "new"));
    checkProperty(handler, "box.title", "new");
    checkLinked(handler, "box.caption", "second");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_link_inside_an_element_without_class_is_not_found) {
    void* handler = handlerOf("<VelnorItem class='text' id='box'><a><t link='plain'>1</t></a>"
                              "<a class='group'><t link='grouped'>2</t></a></VelnorItem>");
    CHECK_INT(-1, xmlToImgGetObjectLinkDictionary(handler, "box.plain", NULL, 0));
    checkLinked(handler, "box.grouped", "2");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_links_end_at_their_zero_or_at_their_length) {
    void* handler = handlerOf(LINKED);
    const unsigned short* ticket = wideOf("\xf0\x9f\x8e\xab");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionaryUnicode(handler, wideOf("box.caption"), UpToZero,
                                                        ticket, UpToZero));
    checkLinked(handler, "box.caption", "\xf0\x9f\x8e\xab");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionaryUnicode(handler, wideWithTail("box.caption"), 11,
                                                        wideWithTail("new"), 3));
    checkLinked(handler, "box.caption", "new");
    CHECK_INT(0, xmlToImgSetObjectLinkDictionaryUnicode(handler, wideOf("box.caption"), UpToZero,
                                                        NULL, 4));
    checkLinked(handler, "box.caption", "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_links_are_refused_like_narrow_ones) {
    void* handler = handlerOf(LINKED);
    const unsigned short* value = wideOf("new");
    const char* refused[] = {"box.title", "nobody.caption", "box.caption.x", "box."};
    for (size_t i = 0; i < sizeof refused / sizeof *refused; ++i) {
        CHECK_INT(-1, xmlToImgSetObjectLinkDictionaryUnicode(handler, wideOf(refused[i]), UpToZero,
                                                             value, UpToZero));
    }
    checkLinked(handler, "box.caption", "old");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
