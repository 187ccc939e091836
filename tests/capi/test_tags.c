/* Tags: placeholders that are replaced in the text of the document. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

enum { TextSize = 256 };

/* A handler of a document whose label holds `text`. */
static void* handlerWithText(const char* text) {
    startLibrary();
    const char* label =
        textOf("<VelnorItem class='text' id='label'><text>%s</text></VelnorItem>", text);
    return xmlToImgCreateHandler(writeLayout("page.xml", label));
}

static void checkLabel(void* handler, const char* expected) {
    char text[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "label.text", text, TextSize));
    CHECK_TEXT(expected, text);
}

CASE(a_tag_replaces_its_placeholders_in_the_picture) {
    startLibrary();
    void* handler =
        xmlToImgCreateHandler(writeLayout("page.xml", "<%size%>%n%</%size%><height>%n%</height>"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "n", "123"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "size", "width"));
    CHECK_INT(123, drawnWidth(handler));
    CHECK_INT(123, pngHeight("drawn.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_first_value_of_a_tag_counts) {
    void* handler = handlerWithText("%a%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "first"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "second"));
    checkLabel(handler, "first");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_is_substituted_by_tags_that_were_set_later) {
    void* handler = handlerWithText("%a%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "[%b%]"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "b", "inner"));
    checkLabel(handler, "[inner]");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_is_not_substituted_by_tags_that_were_set_earlier) {
    void* handler = handlerWithText("%a%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "b", "inner"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "[%b%]"));
    checkLabel(handler, "[%b%]");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_empty_or_null_value_removes_the_placeholder) {
    void* handler = handlerWithText("[%a%][%b%]");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", ""));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "b", NULL));
    checkLabel(handler, "[][]");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_placeholder_without_a_tag_stays) {
    void* handler = handlerWithText("%a% %A% 50%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "A", "capital"));
    checkLabel(handler, "%a% capital 50%");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(percent_signs_in_a_name_count_as_part_of_it) {
    void* handler = handlerWithText("%a% %%b%%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "%a%", "one"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "%b%", "two"));
    checkLabel(handler, "%a% two");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_empty_or_null_name_stands_for_two_percent_signs) {
    void* handler = handlerWithText("100%%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, NULL, " per cent"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "", "ignored"));
    checkLabel(handler, "100 per cent");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_placeholder_lies_within_one_line) {
    void* handler = handlerWithText("%a\nb% %c%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a\nb", "lost"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "c", "found"));
    checkLabel(handler, "%a\nb% found");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(line_ends_of_the_document_are_read_as_line_feeds) {
    void* handler = handlerWithText("one\r\n%a%\r\nthree");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "two"));
    checkLabel(handler, "one\ntwo\nthree");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_is_inserted_as_xml) {
    void* handler = handlerWithText("%a%");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "1 &lt; 2"));
    checkLabel(handler, "1 < 2");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_that_breaks_the_document_is_accepted_and_gives_no_picture) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", CANVAS_OF(20, 20) "<y>%a%</y>"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "1 < 2"));
    CHECK_INT(0, drawnWidth(handler));
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(20, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(values_are_utf8_and_names_latin1) {
    void* handler = handlerWithText("%gr\xc3\xb6\xc3\x9f\x65%");
    CHECK_INT(0,
              xmlToImgSetTagDictionary(handler, "gr\xf6\xdf\x65", "\xe2\x82\xac \xf0\x9f\x8e\xab"));
    checkLabel(handler, "\xe2\x82\xac \xf0\x9f\x8e\xab");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(wide_tags_end_at_their_zero_or_at_their_length) {
    void* handler = handlerWithText("%a% %b% %c%");
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, wideOf("a"), UpToZero,
                                                 wideOf("\xf0\x9f\x8e\xab"), UpToZero));
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, wideWithTail("b"), 1,
                                                 wideWithTail("\xf0\x9f\x8e\xab"), 2));
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, wideOf("c"), -7, wideOf("\xc3\xbc"), -7));
    checkLabel(handler, "\xf0\x9f\x8e\xab \xf0\x9f\x8e\xab \xc3\xbc");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(null_wide_texts_are_empty_texts) {
    void* handler = handlerWithText("[%%][%a%]");
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, NULL, 5, wideOf("none"), UpToZero));
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, wideOf("a"), 1, NULL, 5));
    checkLabel(handler, "[none][]");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A wide name passes through UTF-8 before it is read as Latin-1, so that only names of ASCII are
 * the same in both forms. */
CASE(a_wide_name_outside_ascii_is_read_byte_by_byte) {
    void* handler = handlerWithText("%\xc3\xbc% %\xc3\x83\xc2\xbc%");
    CHECK_INT(0, xmlToImgSetTagDictionaryUnicode(handler, wideOf("\xc3\xbc"), UpToZero,
                                                 wideOf("value"), UpToZero));
    checkLabel(handler, "%\xc3\xbc% value");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(clearing_empties_both_dictionaries) {
    void* handler = handlerWithText("%a%");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "tag"));
    checkLabel(handler, "tag");
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "label.text", "object tag"));
    checkLabel(handler, "object tag");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    checkLabel(handler, "%a%");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(tags_can_be_set_without_a_document) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "w", "55"));
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "w", "66"));
    writeLayout("page.xml", "<width>%w%</width><height>10</height>");
    CHECK_INT(66, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
