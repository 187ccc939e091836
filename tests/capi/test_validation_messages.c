/* The messages of validation in buffers of every size, and when there are none. */
#include "support/files.h"
#include "support/guarded.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <limits.h>
#include <string.h>

#define FIRST "Line item id=a: invalid length(-1); "
#define SECOND "Line item id=b: invalid length(-1); "

enum { BothLength = sizeof FIRST SECOND - 1, RoomSize = 128 };

static void* handlerWithTwoFindings(void) {
    startLibrary();
    return xmlToImgCreateHandler(
        writeLayout("page.xml", "<VelnorItem class='line' id='a'><thickness>1</thickness>"
                                "</VelnorItem><VelnorItem class='line' id='b'>"
                                "<thickness>1</thickness></VelnorItem>"));
}

/* The buffer holds the start of both messages, at least one zero, and zeros up to its end. */
static void checkCut(void* handler, int size) {
    const Guarded buffer = guardedBuffer((size_t)size);
    const int kept = size - 1 < BothLength ? size - 1 : BothLength;
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, size));
    checkFilled(buffer, textOf("%.*s", kept, FIRST SECOND), (size_t)size);
}

CASE(a_buffer_with_room_receives_all_messages_and_zero_bytes) {
    void* handler = handlerWithTwoFindings();
    checkCut(handler, BothLength + 1);
    checkCut(handler, BothLength + 2);
    checkCut(handler, 1000);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_short_buffer_receives_the_start_and_a_zero_byte) {
    void* handler = handlerWithTwoFindings();
    for (int size = 1; size <= BothLength; ++size) {
        checkCut(handler, size);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_buffer_of_one_byte_receives_only_its_zero) {
    void* handler = handlerWithTwoFindings();
    const Guarded buffer = guardedBuffer(RoomSize);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, 1));
    checkFilled(buffer, "", 1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(into_a_size_below_one_nothing_is_written) {
    void* handler = handlerWithTwoFindings();
    const int sizes[] = {0, -1, -7, INT_MIN};
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        const Guarded buffer = guardedBuffer(RoomSize);
        CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, sizes[i]));
        checkUntouchedFrom(buffer, 0);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(without_a_buffer_the_result_alone_tells_of_findings) {
    void* handler = handlerWithTwoFindings();
    const int sizes[] = {0, 1, 100, INT_MAX, -1, INT_MIN};
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        CHECK_INT(-1, xmlToImgCheckCorrect(handler, NULL, sizes[i]));
    }
    writeLayout("page.xml", BOX);
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        CHECK_INT(0, xmlToImgCheckCorrect(handler, NULL, sizes[i]));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_message_may_be_cut_inside_a_character) {
    startLibrary();
    void* handler =
        xmlToImgCreateHandler(writeLayout("page.xml", "<VelnorItem class='line' id='\xe2\x82\xac'>"
                                                      "<thickness>1</thickness></VelnorItem>"));
    const Guarded buffer = guardedBuffer(16);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, 16));
    checkFilled(buffer, "Line item id=\xe2\x82", 16);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(without_findings_the_buffer_holds_only_zero_bytes) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", BOX));
    const Guarded buffer = guardedBuffer(RoomSize);
    CHECK_INT(0, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, 100));
    checkFilled(buffer, "", 100);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_message_of_a_null_canvas_is_cut_too) {
    startLibrary();
    writeFile("page.xml", "<VelnorRoot><VelnorItems class='list'/></VelnorRoot>");
    void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
    const Guarded buffer = guardedBuffer(RoomSize);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, 7));
    checkFilled(buffer, "Canvas", 7);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_document_that_does_not_parse_leaves_the_buffer_untouched) {
    startLibrary();
    const char* documents[] = {"", "<VelnorRoot><VelnorItems class='canvas'>", "<VelnorRoot/>",
                               "<Root><VelnorItems class='canvas'/></Root>", "no xml"};
    for (size_t i = 0; i < sizeof documents / sizeof *documents; ++i) {
        void* handler = xmlToImgCreateHandler(writeFile("page.xml", documents[i]));
        const Guarded buffer = guardedBuffer(RoomSize);
        CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, RoomSize));
        checkUntouchedFrom(buffer, 0);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

CASE(a_missing_document_leaves_the_buffer_untouched) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(pathOf("missing.xml"));
    const Guarded buffer = guardedBuffer(RoomSize);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, RoomSize));
    checkUntouchedFrom(buffer, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_handler_fails_and_leaves_the_buffer_untouched) {
    const Guarded buffer = guardedBuffer(RoomSize);
    CHECK_INT(-1, xmlToImgCheckCorrect(NULL, (char*)buffer.bytes, RoomSize));
    startLibrary();
    CHECK_INT(-1, xmlToImgCheckCorrect(NULL, (char*)buffer.bytes, RoomSize));
    CHECK_INT(-1, xmlToImgCheckCorrect(NULL, NULL, RoomSize));
    checkUntouchedFrom(buffer, 0);
}

CASE(ten_thousand_findings_fit_or_are_cut) {
    enum { Items = 10000 };
    startLibrary();
    const char* item = "<VelnorItem class='ellipse' id='e'/>";
    const char* message = "Ellipse item id=e: invalid thickness(0); ";
    const size_t itemLength = strlen(item);
    const size_t messageLength = strlen(message);
    char* items = caseMemory(Items * itemLength + 1);
    for (size_t i = 0; i < Items; ++i) {
        memcpy(items + i * itemLength, item, itemLength);
    }
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", items));
    const size_t size = Items * messageLength + 1;
    char* messages = caseMemory(size);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, messages, (int)size));
    CHECK(strlen(messages) == size - 1);
    CHECK_TEXT(message, messages + (Items - 1) * messageLength);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, messages, (int)messageLength));
    CHECK(strlen(messages) == messageLength - 1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(validation_is_silent) {
    captureOutput();
    startLibrary();
    void* handler = xmlToImgCreateHandler(
        writeLayout("page.xml", LABEL "<VelnorItem class='image' id='i'/><VelnorItem class='text' "
                                      "id='t'><fontname>Nowhere</fontname><text>x</text>"
                                      "</VelnorItem>"));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, NULL, 0));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}
