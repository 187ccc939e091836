/* Object tags: texts of elements set by "object.property". */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

enum { TextSize = 256 };

static void* handlerOf(const char* children) {
    startLibrary();
    return xmlToImgCreateHandler(writeLayout("page.xml", children));
}

static void set(void* handler, const char* name, const char* value) {
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, name, value));
}

static void checkRead(void* handler, const char* name, const char* expected) {
    char text[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, name, text, TextSize));
    CHECK_TEXT(expected, text);
}

static void checkUnreadable(void* handler, const char* name) {
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(handler, name, NULL, 0));
}

CASE(an_object_tag_changes_the_picture) {
    void* handler = handlerOf(CANVAS_OF(50, 20));
    set(handler, "canvas.width", "88");
    CHECK_INT(88, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_missing_property_is_made) {
    void* handler = handlerOf("<height>20</height><VelnorItem class='text' id='logo'/>");
    set(handler, "canvas.width", "77");
    set(handler, "logo.text", "made");
    checkRead(handler, "logo.text", "made");
    CHECK_INT(77, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_last_value_of_an_object_tag_counts) {
    void* handler = handlerOf(CANVAS_OF(50, 20));
    set(handler, "canvas.width", "60");
    set(handler, "canvas.width", "70");
    set(handler, "canvas.made", "first");
    set(handler, "canvas.made", "second");
    CHECK_INT(70, drawnWidth(handler));
    checkRead(handler, "canvas.made", "second");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_value_needs_no_escaping) {
    void* handler = handlerOf("<VelnorItem class='text' id='label'><text>old</text></VelnorItem>");
    set(handler, "label.text", "a < b & \"c\" %d% \xe2\x82\xac");
    checkRead(handler, "label.text", "a < b & \"c\" %d% \xe2\x82\xac");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_value_is_an_empty_text) {
    void* handler = handlerOf("<VelnorItem class='text' id='label'><text>old</text></VelnorItem>");
    set(handler, "label.text", NULL);
    checkRead(handler, "label.text", "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_object_that_the_document_has_not_is_accepted) {
    void* handler = handlerOf(CANVAS_OF(50, 20));
    set(handler, "nobody.width", "60");
    set(handler, ".width", "60");
    set(handler, "canvas.", "60");
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_name_with_two_points_or_more_is_refused) {
    void* handler = handlerOf(CANVAS_OF(50, 20));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(handler, "a.b.c", "60"));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(handler, "..", "60"));
    CHECK_INT(-1, xmlToImgSetObjectTagDictionary(handler, "canvas.width.", "60"));
    CHECK_INT(50, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_name_without_a_point_sets_a_placeholder) {
    void* handler = handlerOf("<width>%w%</width><height>20</height>");
    set(handler, "w", "44");
    CHECK_INT(44, drawnWidth(handler));
    set(handler, NULL, "x");
    set(handler, "", "x");
    CHECK_INT(44, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_property_that_holds_elements_is_left_alone) {
    void* handler =
        handlerOf("<VelnorItem class='text' id='label'><text>a<b>c</b></text></VelnorItem>");
    set(handler, "label.text", "new");
    checkUnreadable(handler, "label.text");
    checkRead(handler, "label.b", "c");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_empty_property_receives_the_value) {
    void* handler = handlerOf("<VelnorItem class='text' id='label'><text/></VelnorItem>");
    checkRead(handler, "label.text", "");
    set(handler, "label.text", "new");
    checkRead(handler, "label.text", "new");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_object_inside_an_element_without_class_is_not_found) {
    void* handler =
        handlerOf("<group><VelnorItem id='a'><x>1</x></VelnorItem></group>"
                  "<group class='group'><VelnorItem id='b'><x>2</x></VelnorItem></group>");
    checkUnreadable(handler, "a.x");
    checkRead(handler, "b.x", "2");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(of_two_objects_of_one_id_the_less_deep_one_is_meant) {
    void* handler =
        handlerOf("<group class='group'><VelnorItem id='a'><x>deep</x></VelnorItem></group>"
                  "<VelnorItem class='text' id='a'><x>first</x></VelnorItem>"
                  "<VelnorItem class='text' id='a'><x>second</x></VelnorItem>");
    checkRead(handler, "a.x", "first");
    set(handler, "a.x", "new");
    checkRead(handler, "a.x", "new");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_property_is_the_first_element_of_that_name_at_any_depth) {
    void* handler = handlerOf("<VelnorItem class='text' id='a'><b><x>deep</x></b><x>later</x>"
                              "</VelnorItem>");
    checkRead(handler, "a.x", "deep");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(object_tags_can_be_set_before_the_document_exists) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    set(handler, "canvas.width", "33");
    writeLayout("page.xml", CANVAS_OF(50, 20));
    CHECK_INT(33, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(placeholders_are_replaced_before_object_tags_are_applied) {
    void* handler = handlerOf("<VelnorItem class='text' id='%id%'><text>old</text></VelnorItem>");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "id", "label"));
    set(handler, "label.text", "new");
    checkRead(handler, "label.text", "new");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_object_tags_end_at_their_zero_or_at_their_length) {
    void* handler = handlerOf("<VelnorItem class='text' id='label'/>");
    CHECK_INT(0, xmlToImgSetObjectTagDictionaryUnicode(handler, wideOf("label.a"), UpToZero,
                                                       wideOf("\xf0\x9f\x8e\xab"), UpToZero));
    CHECK_INT(0, xmlToImgSetObjectTagDictionaryUnicode(handler, wideWithTail("label.b"), 7,
                                                       wideWithTail("\xf0\x9f\x8e\xab"), 2));
    CHECK_INT(0, xmlToImgSetObjectTagDictionaryUnicode(handler, wideOf("label.c"), 7, NULL, 9));
    checkRead(handler, "label.a", "\xf0\x9f\x8e\xab");
    checkRead(handler, "label.b", "\xf0\x9f\x8e\xab");
    checkRead(handler, "label.c", "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_names_follow_the_rules_of_narrow_ones) {
    void* handler = handlerOf("<width>%w%</width><height>20</height>");
    const unsigned short* value = wideOf("44");
    CHECK_INT(-1, xmlToImgSetObjectTagDictionaryUnicode(handler, wideOf("a.b.c"), UpToZero, value,
                                                        UpToZero));
    CHECK_INT(
        0, xmlToImgSetObjectTagDictionaryUnicode(handler, wideOf("w"), UpToZero, value, UpToZero));
    CHECK_INT(0, xmlToImgSetObjectTagDictionaryUnicode(handler, NULL, 3, value, UpToZero));
    CHECK_INT(44, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(entities_of_the_document_are_expanded) {
    startLibrary();
    const char* path = writeFile(
        "page.xml", "<!DOCTYPE r [<!ENTITY % names '<!ENTITY town \"Sampleton\">'> %names;"
                    "<!ENTITY both '&town; &amp; &town;'>]>"
                    "<r><VelnorItems class='canvas' id='canvas'><note>&both; &lt;3</note>"
                    "</VelnorItems></r>");
    void* handler = xmlToImgCreateHandler(path);
    checkRead(handler, "canvas.note", "Sampleton & Sampleton <3");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
