/* Parameter files listed into narrow buffers of the host. */
#include "support/files.h"
#include "support/guarded.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <limits.h>
#include <string.h>

#define ONE_PAIR                                                                                   \
    "<VelnorParams><VelnorParam id='ticket'><text>file</text></VelnorParam></VelnorParams>"
#define THREE_PAIRS                                                                                \
    "<VelnorParams><VelnorParam id='ticket'><price>12.50</price><date>31.01.</date></VelnorParam>" \
    "<VelnorParam id='bill'><text/></VelnorParam></VelnorParams>"
#define KEYS "ticket.price\x1eticket.date\x1e\x62ill.text"
#define VALUES "12.50\x1e\x33\x31.01.\x1e"

enum { RoomSize = 64, KeyLength = sizeof KEYS - 1, ValueLength = sizeof VALUES - 1 };

/* A handler of a document whose "ticket.text" can be read, and the file "params.xml". */
static void* handlerWithFile(const char* content) {
    startLibrary();
    writeFile("params.xml", content);
    return xmlToImgCreateHandler(writeLayout(
        "page.xml", "<VelnorItem class='text' id='ticket'><text>document</text></VelnorItem>"));
}

/* Lists "params.xml" into two buffers of RoomSize bytes, of which the library is told less. */
static int list(void* handler, Guarded tags, int tagsSize, Guarded values, int valuesSize) {
    return xmlToImgGetDictionaryFromParamFile(handler, pathOf("params.xml"), (char*)tags.bytes,
                                              tagsSize, (char*)values.bytes, valuesSize);
}

CASE(one_pair_gives_the_value_of_the_document) {
    void* handler = handlerWithFile(ONE_PAIR);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, RoomSize, values, RoomSize));
    checkFilled(tags, "ticket.text", RoomSize);
    checkFilled(values, "document", RoomSize);
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "ticket.text", "object tag"));
    CHECK_INT(0, list(handler, tags, RoomSize, values, RoomSize));
    checkFilled(values, "object tag", RoomSize);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(one_pair_that_the_document_does_not_have_gives_the_value_of_the_file) {
    void* handler = handlerWithFile("<VelnorParams><VelnorParam id='ticket'><price>12.50</price>"
                                    "</VelnorParam></VelnorParams>");
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(-1, list(handler, tags, RoomSize, values, RoomSize));
    checkFilled(tags, "ticket.price", RoomSize);
    checkFilled(values, "12.50", RoomSize);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(several_pairs_fail_with_both_lists) {
    void* handler = handlerWithFile(THREE_PAIRS);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(-1, list(handler, tags, RoomSize, values, RoomSize));
    checkFilled(tags, KEYS, RoomSize);
    checkFilled(values, VALUES, RoomSize);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_file_that_cannot_be_listed_fails_with_zero_bytes) {
    const char* broken[] = {"", "<VelnorParams>", "<VelnorParam id='a'><b>1</b></VelnorParam>",
                            "<VelnorParams/>", "<VelnorParams><VelnorParam/></VelnorParams>"};
    for (size_t i = 0; i < sizeof broken / sizeof *broken; ++i) {
        void* handler = handlerWithFile(broken[i]);
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(-1, list(handler, tags, 20, values, 30));
        checkFilled(tags, "", 20);
        checkFilled(values, "", 30);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

CASE(a_missing_file_fails_with_zero_bytes) {
    void* handler = handlerWithFile(ONE_PAIR);
    const char* paths[] = {pathOf("missing.xml"), "", NULL};
    for (size_t i = 0; i < sizeof paths / sizeof *paths; ++i) {
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(handler, paths[i], (char*)tags.bytes, 9,
                                                         (char*)values.bytes, 9));
        checkFilled(tags, "", 9);
        checkFilled(values, "", 9);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_full_key_buffer_has_no_zero_and_puts_it_into_the_values) {
    void* handler = handlerWithFile(THREE_PAIRS);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(-1, list(handler, tags, 5, values, 3));
    checkFilled(tags, "ticke", 5);
    CHECK(memcmp(values.bytes, "12\0\xa5\0\xa5", 6) == 0);
    checkUntouchedFrom(values, 5);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_zero_of_a_full_key_buffer_is_overwritten_by_longer_values) {
    void* handler = handlerWithFile(THREE_PAIRS);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(-1, list(handler, tags, 5, values, ValueLength + 1));
    checkFilled(tags, "ticke", 5);
    checkFilled(values, VALUES, ValueLength + 1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A full key buffer is one key all the same, when that key can be read. */
CASE(a_key_that_fills_its_buffer_exactly_is_looked_up) {
    void* handler = handlerWithFile(ONE_PAIR);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, 11, values, RoomSize));
    checkFilled(tags, "ticket.text", 11);
    checkFilled(values, "document", RoomSize);
    CHECK_INT(-1, list(handler, tags, 10, values, RoomSize));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(buffers_of_the_exact_size_hold_the_lists) {
    void* handler = handlerWithFile(THREE_PAIRS);
    const Guarded tags = guardedBuffer(KeyLength + 1);
    const Guarded values = guardedBuffer(ValueLength + 1);
    CHECK_INT(-1, list(handler, tags, KeyLength + 1, values, ValueLength + 1));
    checkFilled(tags, KEYS, KeyLength + 1);
    checkFilled(values, VALUES, ValueLength + 1);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_short_value_buffer_ends_with_a_zero) {
    void* handler = handlerWithFile(THREE_PAIRS);
    for (int size = 1; size <= ValueLength; ++size) {
        const Guarded values = guardedBuffer((size_t)size);
        CHECK_INT(-1, list(handler, guardedBuffer(RoomSize), RoomSize, values, size));
        checkFilled(values, textOf("%.*s", size - 1, VALUES), (size_t)size);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(into_sizes_below_one_nothing_is_written) {
    const int sizes[] = {0, -1, -7, INT_MIN};
    const char* files[] = {ONE_PAIR, THREE_PAIRS, ""};
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        for (size_t file = 0; file < sizeof files / sizeof *files; ++file) {
            void* handler = handlerWithFile(files[file]);
            const Guarded tags = guardedBuffer(RoomSize);
            const Guarded values = guardedBuffer(RoomSize);
            CHECK_INT(-1, list(handler, tags, sizes[i], values, sizes[i]));
            checkUntouchedFrom(tags, 0);
            checkUntouchedFrom(values, 0);
            CHECK_INT(0, xmlToImgFreeHandler(handler));
        }
    }
}

CASE(either_buffer_may_be_null) {
    void* handler = handlerWithFile(ONE_PAIR);
    const char* path = pathOf("params.xml");
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, xmlToImgGetDictionaryFromParamFile(handler, path, (char*)tags.bytes, RoomSize,
                                                    NULL, RoomSize));
    checkFilled(tags, "ticket.text", RoomSize);
    CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(handler, path, NULL, RoomSize,
                                                     (char*)values.bytes, RoomSize));
    checkFilled(values, "file", RoomSize);
    CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(handler, path, NULL, 5, NULL, 5));
    CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(handler, path, (char*)tags.bytes, 5, NULL, 0));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
