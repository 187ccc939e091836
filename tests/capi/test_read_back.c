/* Reading texts of the document into buffers of the host, of every size that matters. */
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

enum { TextSize = 64 };

typedef int (*NarrowGetter)(void*, const char*, char*, int);
typedef int (*WideGetter)(void*, const unsigned short*, int, unsigned short*, int);

static const NarrowGetter narrowGetters[] = {xmlToImgGetObjectTagDictionary,
                                             xmlToImgGetObjectLinkDictionary};
static const WideGetter wideGetters[] = {xmlToImgGetObjectTagDictionaryUnicode,
                                         xmlToImgGetObjectLinkDictionaryUnicode};
enum { GetterCount = 2 };

/* A handler of a document in which "label.text" is `value`, as a property and as a link. */
static void* handlerWithValue(const char* value) {
    startLibrary();
    return xmlToImgCreateHandler(
        writeLayout("page.xml", textOf("<VelnorItem class='text' id='label'>"
                                       "<text link='text'>%s</text></VelnorItem>",
                                       value)));
}

static unsigned short* units(Guarded buffer) {
    return (unsigned short*)(void*)buffer.bytes;
}

/* A buffer of `size` bytes receives `expected` and zero bytes up to its end. */
static void checkNarrow(void* handler, int size, const char* expected) {
    for (int i = 0; i < GetterCount; ++i) {
        const Guarded buffer = guardedBuffer((size_t)size);
        CHECK_INT(0, narrowGetters[i](handler, "label.text", (char*)buffer.bytes, size));
        CHECK_TEXT(expected, (const char*)buffer.bytes);
        for (int at = (int)strlen(expected); at < size; ++at) {
            CHECK_INT(0, buffer.bytes[at]);
        }
        checkUntouchedFrom(buffer, (size_t)size);
    }
}

/* A buffer of `size` units receives `expected`, a zero unit, and nothing else. */
static void checkWide(void* handler, int size, const unsigned short* expected, int length) {
    for (int i = 0; i < GetterCount; ++i) {
        const Guarded buffer = guardedBuffer((size_t)size * sizeof *expected);
        CHECK_INT(0, wideGetters[i](handler, wideOf("label.text"), UpToZero, units(buffer), size));
        CHECK(memcmp(expected, units(buffer), (size_t)length * sizeof *expected) == 0);
        CHECK_INT(0, units(buffer)[length]);
        checkUntouchedFrom(buffer, (size_t)(length + 1) * sizeof *expected);
    }
}

CASE(a_buffer_with_room_receives_the_value_and_zero_bytes) {
    void* handler = handlerWithValue("abcdef");
    checkNarrow(handler, 7, "abcdef");
    checkNarrow(handler, 8, "abcdef");
    checkNarrow(handler, 40, "abcdef");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_short_buffer_receives_the_start_and_a_zero_byte) {
    void* handler = handlerWithValue("abcdefghij");
    checkNarrow(handler, 1, "");
    checkNarrow(handler, 2, "a");
    checkNarrow(handler, 4, "abc");
    checkNarrow(handler, 9, "abcdefgh");
    checkNarrow(handler, 10, "abcdefghi");
    checkNarrow(handler, 11, "abcdefghij");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_value_may_be_cut_inside_a_character) {
    void* handler = handlerWithValue(EURO EURO);
    checkNarrow(handler, 5, EURO "\xe2");
    checkNarrow(handler, 6, EURO "\xe2\x82");
    checkNarrow(handler, 7, EURO EURO);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_empty_value_fills_the_buffer_with_zero_bytes) {
    void* handler = handlerWithValue("");
    checkNarrow(handler, 1, "");
    checkNarrow(handler, 9, "");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(into_a_size_below_one_nothing_is_written) {
    void* handler = handlerWithValue("abcdef");
    const int sizes[] = {0, -1, -7, INT_MIN};
    for (int getter = 0; getter < GetterCount; ++getter) {
        for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
            const Guarded buffer = guardedBuffer(8);
            CHECK_INT(0,
                      narrowGetters[getter](handler, "label.text", (char*)buffer.bytes, sizes[i]));
            checkUntouchedFrom(buffer, 0);
        }
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(without_a_buffer_the_result_alone_tells_of_the_property) {
    void* handler = handlerWithValue("abcdef");
    for (int i = 0; i < GetterCount; ++i) {
        CHECK_INT(0, narrowGetters[i](handler, "label.text", NULL, 0));
        CHECK_INT(0, narrowGetters[i](handler, "label.text", NULL, 100));
        CHECK_INT(-1, narrowGetters[i](handler, "label.colour", NULL, 100));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_wide_buffer_with_room_receives_the_value_and_one_zero) {
    void* handler = handlerWithValue("abcdef");
    checkWide(handler, 7, wideOf("abcdef"), 6);
    checkWide(handler, 8, wideOf("abcdef"), 6);
    checkWide(handler, 40, wideOf("abcdef"), 6);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_short_wide_buffer_receives_the_start_and_a_zero) {
    void* handler = handlerWithValue("abcdefghij");
    checkWide(handler, 1, wideOf(""), 0);
    checkWide(handler, 2, wideOf("a"), 1);
    checkWide(handler, 9, wideOf("abcdefgh"), 8);
    checkWide(handler, 10, wideOf("abcdefghi"), 9);
    checkWide(handler, 11, wideOf("abcdefghij"), 10);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_wide_value_may_be_cut_between_surrogates) {
    void* handler = handlerWithValue("ab" TICKET);
    checkWide(handler, 4, wideOf("ab" TICKET), 3);
    checkWide(handler, 5, wideOf("ab" TICKET), 4);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A buffer of n units receives no more than 2 * n - 1 bytes of UTF-8 hold. */
CASE(a_wide_value_of_long_characters_needs_a_larger_buffer) {
    void* handler = handlerWithValue(EURO EURO EURO EURO EURO);
    const Guarded buffer = guardedBuffer(12);
    CHECK_INT(0, xmlToImgGetObjectTagDictionaryUnicode(handler, wideOf("label.text"), UpToZero,
                                                       units(buffer), 6));
    CHECK(memcmp(units(buffer), wideOf(EURO EURO EURO), 3 * sizeof(unsigned short)) == 0);
    CHECK(units(buffer)[4] != wideOf(EURO)[0]);
    checkUntouchedFrom(buffer, buffer.size);
    checkWide(handler, 8, wideOf(EURO EURO EURO EURO EURO), 5);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_wide_size_below_one_fails_and_writes_nothing) {
    void* handler = handlerWithValue("abcdef");
    const int sizes[] = {0, -1, -7, INT_MIN};
    for (int getter = 0; getter < GetterCount; ++getter) {
        for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
            const Guarded buffer = guardedBuffer(16);
            CHECK_INT(-1, wideGetters[getter](handler, wideOf("label.text"), UpToZero,
                                              units(buffer), sizes[i]));
            checkUntouchedFrom(buffer, 0);
        }
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(the_largest_wide_size_does_not_overflow) {
    void* handler = handlerWithValue("abcdef");
    unsigned short out[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionaryUnicode(handler, wideOf("label.text"), UpToZero, out,
                                                       INT_MAX));
    CHECK(memcmp(out, wideOf("abcdef"), 7 * sizeof *out) == 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_failed_read_leaves_the_buffer_untouched) {
    void* handler = handlerWithValue("a<b/>c");
    const char* names[] = {"label.text",   "label.colour", "nobody.text", "label", "",
                           "label.text.x", ".text",        "label.",      "."};
    for (size_t i = 0; i < sizeof names / sizeof *names; ++i) {
        for (int getter = 0; getter < GetterCount; ++getter) {
            const Guarded narrow = guardedBuffer(TextSize);
            CHECK_INT(-1, narrowGetters[getter](handler, names[i], (char*)narrow.bytes, TextSize));
            checkUntouchedFrom(narrow, 0);
            const Guarded wide = guardedBuffer(TextSize);
            CHECK_INT(-1, wideGetters[getter](handler, wideOf(names[i]), UpToZero, units(wide),
                                              TextSize / 2));
            checkUntouchedFrom(wide, 0);
        }
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_null_name_fails) {
    void* handler = handlerWithValue("abcdef");
    const Guarded buffer = guardedBuffer(TextSize);
    for (int i = 0; i < GetterCount; ++i) {
        CHECK_INT(-1, narrowGetters[i](handler, NULL, (char*)buffer.bytes, TextSize));
        CHECK_INT(-1, wideGetters[i](handler, NULL, 9, units(buffer), TextSize / 2));
    }
    checkUntouchedFrom(buffer, 0);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_document_that_cannot_be_read_fails) {
    startLibrary();
    writeFile("malformed.xml", "<VelnorRoot><VelnorItems>");
    writeFile("empty.xml", "");
    const char* documents[] = {"missing.xml", "malformed.xml", "empty.xml"};
    for (size_t i = 0; i < sizeof documents / sizeof *documents; ++i) {
        const Guarded buffer = guardedBuffer(TextSize);
        void* handler = xmlToImgCreateHandler(pathOf(documents[i]));
        for (int getter = 0; getter < GetterCount; ++getter) {
            CHECK_INT(-1, narrowGetters[getter](handler, "a.b", (char*)buffer.bytes, TextSize));
        }
        checkUntouchedFrom(buffer, 0);
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
}

CASE(wide_names_end_at_their_zero_or_at_their_length) {
    void* handler = handlerWithValue("abcdef");
    unsigned short out[TextSize];
    for (int i = 0; i < GetterCount; ++i) {
        CHECK_INT(0, wideGetters[i](handler, wideWithTail("label.text"), 10, out, TextSize));
        CHECK_INT(-1, wideGetters[i](handler, wideWithTail("label.text"), UpToZero, out, TextSize));
        CHECK_INT(-1, wideGetters[i](handler, wideOf("label.text"), 9, out, TextSize));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(a_read_document_is_kept_until_a_dictionary_changes) {
    void* handler = handlerWithValue("old");
    checkNarrow(handler, TextSize, "old");
    writeLayout("page.xml",
                "<VelnorItem class='text' id='label'><text link='text'>new</text></VelnorItem>");
    checkNarrow(handler, TextSize, "old");
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    checkNarrow(handler, TextSize, "old");
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "a", "b"));
    checkNarrow(handler, TextSize, "new");
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
