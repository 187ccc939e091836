/* Parameter files listed into UTF-16 buffers of the host. */
#include "support/files.h"
#include "support/guarded.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <limits.h>
#include <string.h>

#define TICKET "\xf0\x9f\x8e\xab" /* one character, two code units, four bytes */
#define EURO "\xe2\x82\xac"       /* one character, one code unit, three bytes */
#define ENTRY(id, values)                                                                          \
    "<VelnorParams><VelnorParam id='" id "'>" values "</VelnorParam></VelnorParams>"
#define THREE_PAIRS ENTRY("ticket", "<price>12.50</price><date>31.01.</date><note/>")
#define KEYS "ticket.price\x1eticket.date\x1eticket.note"
#define VALUES "12.50\x1e\x33\x31.01.\x1e"

enum { RoomUnits = 64, UnitSize = sizeof(unsigned short), RoomSize = RoomUnits * UnitSize };

static void* handlerWithFile(const char* name, const char* content) {
    startLibrary();
    writeFile(name, content);
    return xmlToImgCreateHandler(writeLayout(
        "page.xml", "<VelnorItem class='text' id='ticket'><text>document</text></VelnorItem>"));
}

static unsigned short* units(Guarded buffer) {
    return (unsigned short*)(void*)buffer.bytes;
}

static int listPath(void* handler, const unsigned short* path, int length, Guarded tags,
                    Guarded values, int size) {
    return xmlToImgGetDictionaryFromParamFileUnicode(handler, path, length, units(tags),
                                                     units(values), size);
}

static int list(void* handler, Guarded tags, Guarded values, int size) {
    return listPath(handler, wideOf(pathOf("params.xml")), UpToZero, tags, values, size);
}

/* The buffer holds the first units of the text, a zero, and nothing new behind. */
static void checkStart(Guarded buffer, const char* expected, int length) {
    const size_t size = (size_t)length * UnitSize;
    CHECK(memcmp(wideOf(expected), buffer.bytes, size) == 0);
    CHECK_INT(0, units(buffer)[length]);
    checkUntouchedFrom(buffer, size + UnitSize);
}

static void checkWhole(Guarded buffer, const char* expected) {
    checkStart(buffer, expected, wideLength(wideOf(expected)));
}

CASE(keys_and_values_are_listed_with_separators) {
    void* handler = handlerWithFile("params.xml", THREE_PAIRS);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, RoomUnits));
    checkWhole(tags, KEYS);
    checkWhole(values, VALUES);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(one_pair_gives_the_value_of_the_file_and_stores_nothing) {
    void* handler = handlerWithFile("params.xml", ENTRY("ticket", "<text>file</text>"));
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, RoomUnits));
    checkWhole(tags, "ticket.text");
    checkWhole(values, "file");
    char value[RoomUnits];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "ticket.text", value, RoomUnits));
    CHECK_TEXT("document", value);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(entries_without_pairs_give_empty_lists) {
    const char* files[] = {ENTRY("ticket", ""), ENTRY("", "<text>file</text>"),
                           "<VelnorParams><VelnorParam><a>1</a></VelnorParam></VelnorParams>"};
    for (size_t i = 0; i < sizeof files / sizeof *files; ++i) {
        void* handler = handlerWithFile("params.xml", files[i]);
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(0, list(handler, tags, values, RoomUnits));
        checkWhole(tags, "");
        checkWhole(values, "");
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

CASE(comments_are_pairs_without_a_name) {
    void* handler = handlerWithFile("params.xml", ENTRY("a", "<!--note--><b>1<!--x-->2</b>"));
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, RoomUnits));
    checkWhole(tags, "a.\x1e\x61.b");
    checkWhole(values, "\x1e\x31\x32");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(nested_texts_are_joined_and_ids_with_points_listed) {
    void* handler = handlerWithFile("params.xml", ENTRY("a.b", "<c>1<i>2<u>3</u></i>4</c>"));
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, RoomUnits));
    checkWhole(tags, "a.b.c");
    checkWhole(values, "1234");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(texts_outside_ascii_are_utf16) {
    void* handler =
        handlerWithFile("params.xml", ENTRY("\xc3\xb6", "<\xc3\xa4>" TICKET EURO "</\xc3\xa4>"));
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, RoomUnits));
    checkWhole(tags, "\xc3\xb6.\xc3\xa4");
    checkWhole(values, TICKET EURO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(short_buffers_receive_the_start_and_a_zero) {
    void* handler = handlerWithFile("params.xml", ENTRY("abcd", "<efgh>0123456789</efgh>"));
    for (int size = 1; size <= 12; ++size) {
        const Guarded tags = guardedBuffer((size_t)size * UnitSize);
        const Guarded values = guardedBuffer((size_t)size * UnitSize);
        CHECK_INT(0, list(handler, tags, values, size));
        checkStart(tags, "abcd.efgh", size - 1 < 9 ? size - 1 : 9);
        checkStart(values, "0123456789", size - 1 < 10 ? size - 1 : 10);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_list_may_be_cut_between_surrogates) {
    void* handler = handlerWithFile("params.xml", ENTRY("a", "<b>xy" TICKET "</b>"));
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, guardedBuffer(RoomSize), values, 4));
    checkStart(values, "xy" TICKET, 3);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A buffer of n units receives no more than 2 * n - 1 bytes of UTF-8 hold. */
CASE(a_list_of_long_characters_needs_a_larger_buffer) {
    void* handler =
        handlerWithFile("params.xml", ENTRY("a", "<b>" EURO EURO EURO EURO EURO "</b>"));
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, guardedBuffer(RoomSize), values, 6));
    CHECK(memcmp(wideOf(EURO EURO EURO), values.bytes, 3 * UnitSize) == 0);
    CHECK(units(values)[4] != wideOf(EURO)[0]);
    checkUntouchedFrom(values, 6 * UnitSize);
    const Guarded larger = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, guardedBuffer(RoomSize), larger, 8));
    checkWhole(larger, EURO EURO EURO EURO EURO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_size_below_one_fails_and_writes_nothing) {
    void* handler = handlerWithFile("params.xml", THREE_PAIRS);
    const int sizes[] = {0, -1, -7, INT_MIN};
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(-1, list(handler, tags, values, sizes[i]));
        checkUntouchedFrom(tags, 0);
        checkUntouchedFrom(values, 0);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_largest_size_does_not_overflow) {
    void* handler = handlerWithFile("params.xml", THREE_PAIRS);
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    CHECK_INT(0, list(handler, tags, values, INT_MAX));
    checkWhole(tags, KEYS);
    checkWhole(values, VALUES);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_file_that_cannot_be_listed_leaves_the_buffers_untouched) {
    const char* broken[] = {"", "<VelnorParams>", "<VelnorParam id='a'><b>1</b></VelnorParam>",
                            "<VelnorParams/>"};
    for (size_t i = 0; i < sizeof broken / sizeof *broken; ++i) {
        void* handler = handlerWithFile("params.xml", broken[i]);
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(-1, list(handler, tags, values, RoomUnits));
        checkUntouchedFrom(tags, 0);
        checkUntouchedFrom(values, 0);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

CASE(paths_end_at_their_zero_or_at_their_length) {
    const char* name = TICKET "-" EURO ".xml";
    void* handler = handlerWithFile(name, THREE_PAIRS);
    const unsigned short* path = wideOf(pathOf(name));
    const unsigned short* tail = wideWithTail(pathOf(name));
    const struct {
        const unsigned short* path;
        int length;
        int result;
    } rows[] = {
        {path, UpToZero, 0},
        {path, -7, 0},
        {tail, wideLength(path), 0},
        {tail, UpToZero, -1},
        {path, wideLength(path) - 1, -1},
        {path, 0, -1},
        {NULL, UpToZero, -1},
        {NULL, 9, -1},
    };
    for (size_t i = 0; i < sizeof rows / sizeof *rows; ++i) {
        const Guarded tags = guardedBuffer(RoomSize);
        const Guarded values = guardedBuffer(RoomSize);
        CHECK_INT(rows[i].result,
                  listPath(handler, rows[i].path, rows[i].length, tags, values, RoomUnits));
        checkUntouchedFrom(tags, rows[i].result == 0 ? sizeof KEYS * UnitSize : 0);
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_handler_fails_and_writes_nothing) {
    const Guarded tags = guardedBuffer(RoomSize);
    const Guarded values = guardedBuffer(RoomSize);
    char* narrowTags = (char*)tags.bytes;
    char* narrowValues = (char*)values.bytes;
    const char* path = writeFile("params.xml", THREE_PAIRS);
    for (int started = 0; started < 2; ++started) {
        CHECK_INT(-1, list(NULL, tags, values, RoomUnits));
        CHECK_INT(-1, xmlToImgGetDictionaryFromParamFileUnicode(NULL, NULL, 3, NULL, NULL, 0));
        CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(NULL, path, narrowTags, RoomSize,
                                                         narrowValues, RoomSize));
        CHECK_INT(-1, xmlToImgGetDictionaryFromParamFile(NULL, NULL, NULL, 0, NULL, 0));
        if (started == 0) {
            startLibrary();
        }
    }
    checkUntouchedFrom(tags, 0);
    checkUntouchedFrom(values, 0);
}
