/* Validation: the message of each finding, and their order. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <string.h>

enum { MessageSize = 2048 };

/* An item of a layout and what is found in it. */
typedef struct Item {
    const char* class;
    const char* id;
    const char* fields;
    const char* findings;
} Item;

#define COUNT(items) (sizeof(items) / sizeof *(items))
#define FONT(family) "<text>Ticket</text><fontname>" family "</fontname>"
#define BOLD "<bold>1</bold>"
#define ITALIC "<italic>1</italic>"
#define STROKE(thickness, style) "<thickness>" #thickness "</thickness><style>" #style "</style>"
#define CODE(type, mode, data)                                                                     \
    "<type>" #type "</type><inputmode>" #mode "</inputmode><text>" data "</text>"
#define NOT_HEXADECIMAL(id)                                                                        \
    "Barcode item id=" id ": invalid hexadecimal value, render as unicode string; "

static const char* layoutOf(const Item* items, size_t count) {
    const char* children = "";
    for (size_t i = 0; i < count; ++i) {
        children = textOf("%s<VelnorItem class='%s' id='%s'>%s</VelnorItem>", children,
                          items[i].class, items[i].id, items[i].fields);
    }
    return writeLayout("page.xml", children);
}

static void checkFindings(void* handler, const char* expected) {
    char messages[MessageSize];
    memset(messages, '#', sizeof messages);
    CHECK_INT(*expected == '\0' ? 0 : -1, xmlToImgCheckCorrect(handler, messages, MessageSize));
    CHECK_TEXT(expected, messages);
}

static void checkDocument(const char* path, const char* expected) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(path);
    checkFindings(handler, expected);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A layout of all items has the findings of all, in their order. */
static void checkItems(const Item* items, size_t count) {
    const char* expected = "";
    for (size_t i = 0; i < count; ++i) {
        expected = textOf("%s%s", expected, items[i].findings);
    }
    checkDocument(layoutOf(items, count), expected);
}

/* Only fonts from this folder can be used. */
static void makeFontFolder(void) {
    hideSystemFonts();
    makeFolder("fonts");
}

CASE(well_formed_items_have_no_findings) {
    makeFontFolder();
    linkFile("fonts/sans.ttf", SANS);
    linkFile("fonts/bold.ttf", SANS_BOLD);
    linkFile("fonts/italic.ttf", SANS_ITALIC);
    writeFile("logo.png", "any file");
    const Item items[] = {
        {"image", "i", "<filepath>logo.png</filepath>", ""},
        {"text", "t", FONT("Liberation Sans"), ""},
        {"text", "u", FONT("Liberation Sans") BOLD ITALIC, ""},
        {"barcode", "b", CODE(20, 1, "TICKET"), ""},
        {"rectangle", "r", STROKE(1, 0), ""},
        {"ellipse", "e", STROKE(1, 1), ""},
        {"line", "l", STROKE(1, 1) "<length>1</length>", ""},
    };
    checkItems(items, COUNT(items));
}

CASE(a_canvas_without_items_has_no_findings) {
    checkItems(NULL, 0);
}

CASE(a_missing_picture_is_named_with_its_resolved_path) {
    const char* missing =
        textOf("Image item id=logo: invalid filepath(%s); ", pathOf("img/logo.png"));
    const Item items[] = {{"image", "logo", "<filepath>img/logo.png</filepath>", missing}};
    checkItems(items, COUNT(items));
}

CASE(a_picture_is_looked_for_in_the_given_directory) {
    startLibrary();
    makeFolder("pictures");
    writeFile("pictures/logo.png", "any file");
    const Item items[] = {{"image", "logo", "<filepath>logo.png</filepath>", ""}};
    void* handler =
        xmlToImgCreateHandlerWithDirs(layoutOf(items, COUNT(items)), pathOf("pictures"), NULL);
    checkFindings(handler, "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_text_without_a_font_has_that_finding_alone) {
    const Item items[] = {{"text", "t", FONT("") BOLD ITALIC, "Text item id=t: null font; "}};
    checkItems(items, COUNT(items));
}

CASE(an_empty_text_has_no_findings) {
    const Item items[] = {{"text", "t", "<text></text>" BOLD, ""}, {"text", "u", ITALIC, ""}};
    checkItems(items, COUNT(items));
}

CASE(an_unknown_family_is_named_with_its_substitute) {
    makeFontFolder();
    linkFile("fonts/sans.ttf", SANS);
    const Item items[] = {
        {"text", "t", FONT("Nowhere") BOLD ITALIC,
         "Text item id=t: font not available(Nowhere) using default(Liberation Sans); "},
    };
    checkItems(items, COUNT(items));
}

CASE(missing_styles_are_found_bold_before_italic) {
    makeFontFolder();
    writeFont("fonts/alpha.ttf", SANS, "Alphafonts");
    const Item items[] = {
        {"text", "r", FONT("Alphafonts Sans"), ""},
        {"text", "b", FONT("Alphafonts Sans") BOLD,
         "Text item id=b: bold not available(Alphafonts Sans); "},
        {"text", "i", FONT("Alphafonts Sans") ITALIC,
         "Text item id=i: italic not available(Alphafonts Sans); "},
        {"text", "t", FONT("Alphafonts Sans") ITALIC BOLD,
         "Text item id=t: bold not available(Alphafonts Sans); "
         "Text item id=t: italic not available(Alphafonts Sans); "},
    };
    checkItems(items, COUNT(items));
}

CASE(fonts_of_a_freed_handler_are_no_longer_available) {
    makeFontFolder();
    startLibrary();
    writeFont("fonts/alpha.ttf", SANS, "Alphafonts");
    const Item items[] = {{"text", "t", FONT("Alphafonts Sans"), ""}};
    const char* document = layoutOf(items, COUNT(items));
    void* owner = xmlToImgCreateHandler(document);
    void* other = xmlToImgCreateHandlerWithDirs(document, NULL, pathOf("no-such-folder"));
    checkFindings(other, "");
    CHECK_INT(0, xmlToImgFreeHandler(owner));
    CHECK_INT(-1, xmlToImgCheckCorrect(other, NULL, 0));
    CHECK_INT(0, xmlToImgFreeHandler(other));
}

CASE(a_barcode_without_data_has_that_finding_alone) {
    const Item items[] = {{"barcode", "b", CODE(0, 0, ""), "Barcode item id=b: null barcode; "}};
    checkItems(items, COUNT(items));
}

CASE(barcode_types_outside_1_to_142_are_found) {
    const Item items[] = {
        {"barcode", "a", CODE(1, 1, "x"), ""},
        {"barcode", "b", CODE(142, 1, "x"), ""},
        {"barcode", "c", CODE(0, 1, "x"), "Barcode item id=c: invalid type(0) barcode; "},
        {"barcode", "d", CODE(143, 1, "x"), "Barcode item id=d: invalid type(143) barcode; "},
        {"barcode", "e", CODE(QR, 1, "x"), "Barcode item id=e: invalid type(0) barcode; "},
        {"barcode", "f", "<text>x</text>", "Barcode item id=f: invalid type(-1) barcode; "},
    };
    checkItems(items, COUNT(items));
}

CASE(data_of_input_mode_zero_must_be_hexadecimal) {
    const Item items[] = {
        {"barcode", "a", CODE(20, 0, "0A,FF"), ""},
        {"barcode", "b", CODE(20, 0, "0A,,FF"), NOT_HEXADECIMAL("b")},
        {"barcode", "c", CODE(20, 0, "100"), NOT_HEXADECIMAL("c")},
        {"barcode", "d", CODE(20, 0, "G1"), NOT_HEXADECIMAL("d")},
        {"barcode", "e", CODE(20, 0, "0A,"), NOT_HEXADECIMAL("e")},
        {"barcode", "f", CODE(20, 1, "G1"), ""},
        {"barcode", "g", CODE(20, 2, "G1"), ""},
    };
    checkItems(items, COUNT(items));
}

CASE(an_invalid_type_is_found_before_invalid_data) {
    const Item items[] = {{"barcode", "b", CODE(0, 0, ","),
                           "Barcode item id=b: invalid type(0) barcode; " NOT_HEXADECIMAL("b")}};
    checkItems(items, COUNT(items));
}

CASE(the_thickness_of_a_shape_is_found_before_its_style) {
    const Item items[] = {
        {"rectangle", "r", STROKE(0, 2),
         "Rectangle item id=r: invalid thickness(0); Rectangle item id=r: invalid style(2); "},
        {"rectangle", "s", STROKE(1, -1), "Rectangle item id=s: invalid style(-1); "},
        {"rectangle", "t", "", "Rectangle item id=t: invalid thickness(0); "},
        {"ellipse", "e", STROKE(-4, 3),
         "Ellipse item id=e: invalid thickness(-4); Ellipse item id=e: invalid style(3); "},
        {"ellipse", "f", STROKE(-1, 0), "Ellipse item id=f: invalid thickness(-1); "},
    };
    checkItems(items, COUNT(items));
}

CASE(thickness_style_and_length_of_a_line_are_found_in_this_order) {
    const Item items[] = {
        {"line", "l", STROKE(0, 9),
         "Line item id=l: invalid thickness(0); Line item id=l: invalid style(9); "
         "Line item id=l: invalid length(-1); "},
        {"line", "m", STROKE(1, 1) "<length>0</length>", "Line item id=m: invalid length(0); "},
        {"line", "n", STROKE(1, 1) "<length>9</length>", ""},
    };
    checkItems(items, COUNT(items));
}

CASE(items_of_unknown_classes_are_passed_over) {
    const Item items[] = {{"Text", "t", FONT(""), ""}, {"", "u", "", ""}, {"circle", "c", "", ""}};
    checkItems(items, COUNT(items));
}

CASE(hidden_items_are_checked_too) {
    const Item items[] = {{"ellipse", "e", "<hidden>1</hidden>" STROKE(0, 0),
                           "Ellipse item id=e: invalid thickness(0); "}};
    checkItems(items, COUNT(items));
}

CASE(a_nested_item_is_checked_after_its_parent) {
    const Item items[] = {
        {"line", "outer", STROKE(1, 0) "<VelnorItem class='ellipse' id='inner'/>",
         "Line item id=outer: invalid length(-1); "
         "Ellipse item id=inner: invalid thickness(0); "},
        {"line", "last", STROKE(1, 0), "Line item id=last: invalid length(-1); "},
    };
    checkItems(items, COUNT(items));
}

CASE(a_first_item_list_that_is_no_canvas_is_a_null_canvas) {
    checkDocument(writeFile("page.xml", "<VelnorRoot><VelnorItems class='list' id='a'/>"
                                        "<VelnorItems class='canvas' id='b'/></VelnorRoot>"),
                  "Canvas null pointer");
}

CASE(ids_and_paths_outside_ascii_are_utf8) {
    const Item items[] = {
        {"image", "\xe2\x82\xac", "<filepath>/no/\xf0\x9f\x8e\xab.png</filepath>",
         "Image item id=\xe2\x82\xac: invalid filepath(/no/\xf0\x9f\x8e\xab.png); "},
    };
    checkItems(items, COUNT(items));
}

CASE(texts_that_look_like_placeholders_of_a_message_stand_as_they_are) {
    const Item items[] = {{"image", "%2%1", "<filepath>/no/%1%3</filepath>",
                           "Image item id=%2%1: invalid filepath(/no/%1%3); "}};
    checkItems(items, COUNT(items));
}

CASE(tags_and_object_tags_are_applied_before_the_check) {
    startLibrary();
    const Item items[] = {{"rectangle", "%name%", STROKE(1, 0), ""}};
    void* handler = xmlToImgCreateHandler(layoutOf(items, COUNT(items)));
    checkFindings(handler, "");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "name", "box"));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "box.style", "5"));
    checkFindings(handler, "Rectangle item id=box: invalid style(5); ");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    checkFindings(handler, "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_document_is_read_anew_by_each_check) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", BOX));
    checkFindings(handler, "");
    const Item items[] = {{"line", "l", STROKE(1, 1), ""}};
    layoutOf(items, COUNT(items));
    checkFindings(handler, "Line item id=l: invalid length(-1); ");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
