/* Pictures: which documents make one, and that the same document makes the same bytes. */
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <endian.h>
#include <pthread.h>
#include <stdint.h>
#include <string.h>
#include <sys/resource.h>
#include <unistd.h>

#define EVERYTHING CANVAS_OF(200, 100) BOX QR_CODE LABEL

enum { Threads = 4, Repetitions = 10 };

/* Rendering the document succeeds and writes no file. */
static void checkNoPicture(const char* document) {
    makeFolder("out");
    render(document, "out/picture.png");
    CHECK_TEXT("", listTree("out"));
    removeTree(pathOf("out"));
}

CASE(a_missing_document_succeeds_without_a_picture) {
    startLibrary();
    checkNoPicture("missing.xml");
    makeFolder("folder.xml");
    checkNoPicture("folder.xml");
}

CASE(a_malformed_document_succeeds_without_a_picture) {
    startLibrary();
    const char* texts[] = {"",
                           "\n",
                           "no xml at all",
                           "<VelnorRoot><VelnorItems class='canvas'></VelnorRoot>",
                           "<VelnorRoot><VelnorItems class='canvas'><width>9</width>",
                           "<VelnorRoot><VelnorItems class=canvas/></VelnorRoot>",
                           "<VelnorRoot>&unknown;</VelnorRoot"};
    for (size_t i = 0; i < sizeof texts / sizeof *texts; ++i) {
        checkNoPicture(writeFile("malformed.xml", texts[i]));
    }
}

CASE(a_document_without_root_or_canvas_succeeds_without_a_picture) {
    startLibrary();
    const char* size = "<width>20</width><height>20</height>";
    checkNoPicture(writeFile(
        "root.xml", textOf("<Root><VelnorItems class='canvas'>%s</VelnorItems></Root>", size)));
    checkNoPicture(writeFile("items.xml", textOf("<VelnorRoot>%s</VelnorRoot>", size)));
    checkNoPicture(
        writeFile("class.xml", textOf("<VelnorRoot><VelnorItems class='page'>%s</VelnorItems>"
                                      "<VelnorItems class='canvas'>%s</VelnorItems></VelnorRoot>",
                                      size, size)));
}

CASE(a_text_beyond_any_paper_takes_no_memory_where_there_is_no_font) {
    startLibrary();
    const char* sizes[] = {"700", "8000", "24000", "32767", "2147483647"};
    for (size_t i = 0; i < sizeof sizes / sizeof *sizes; ++i) {
        const char* item =
            textOf("<VelnorItem class='text' id='t'><text>Ticket</text>"
                   "<fontname>Nowhere</fontname><fontsize>%s</fontsize></VelnorItem>",
                   sizes[i]);
        const char* canvas = "<width>20</width><height>20</height>";
        render(writeFile("large.xml", textOf("<VelnorRoot><VelnorItems class='canvas'>%s%s"
                                             "</VelnorItems></VelnorRoot>",
                                             canvas, item)),
               "picture.png");
        CHECK(access(pathOf("picture.png"), F_OK) == 0);
    }
    struct rusage usage;
    CHECK(getrusage(RUSAGE_SELF, &usage) == 0);
    CHECK(usage.ru_maxrss < 400 * 1024);
}

CASE(an_earlier_picture_stays_when_the_document_makes_none) {
    startLibrary();
    writeFile("picture.png", "earlier");
    render("missing.xml", "picture.png");
    CHECK_TEXT("earlier", (const char*)readFile("picture.png").bytes);
}

CASE(a_picture_replaces_an_earlier_file) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "first.png");
    writeFile("second.png", textOf("%100000s", "something longer than the picture"));
    render(document, "second.png");
    CHECK(sameContent("first.png", "second.png"));
}

CASE(two_calls_in_a_row_write_the_same_bytes) {
    startLibrary();
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", EVERYTHING));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("kept.png")));
    for (int i = 0; i < Repetitions; ++i) {
        CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("again.png")));
        CHECK(sameContent("kept.png", "again.png"));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(other_pictures_in_between_do_not_change_the_bytes) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "before.png");
    for (int size = 8; size <= 72; size += 8) {
        renderLayout(
            "other",
            textOf(CANVAS_OF(400, 300) "<VelnorItem class='text'><width>390</width>"
                                       "<height>290</height><rotation>%d</rotation>"
                                       "<fontsize>%d</fontsize><text>Other %d</text></VelnorItem>",
                   size, size, size));
    }
    render(document, "after.png");
    CHECK(sameContent("before.png", "after.png"));
}

CASE(each_item_shows_in_the_picture) {
    startLibrary();
    renderLayout("blank", CANVAS_OF(200, 100));
    CHECK(!sameContent(renderLayout("box", CANVAS_OF(200, 100) BOX), "blank.png"));
    CHECK(!sameContent(renderLayout("code", CANVAS_OF(200, 100) QR_CODE), "blank.png"));
    CHECK(!sameContent(renderLayout("label", CANVAS_OF(200, 100) LABEL), "blank.png"));
}

CASE(the_picture_has_the_canvas_size_margins_and_resolution) {
    startLibrary();
    const char* picture = renderLayout("page", CANVAS_OF(576, 200) "<margin>10,20,30,40</margin>");
    CHECK_INT(616, pngWidth(picture));
    CHECK_INT(260, pngHeight(picture));
    CHECK_INT(7992, pngDotsPerMetre(picture));
}

/* The dots per metre in the header of a BMP file, which can be negative. */
static int bmpDotsPerMetre(const char* name) {
    const size_t offset = 38;
    const Content file = readFile(name);
    int32_t dots = 0;
    CHECK(file.size >= offset + sizeof dots);
    memcpy(&dots, file.bytes + offset, sizeof dots);
    return (int)le32toh((uint32_t)dots);
}

CASE(a_dpi_of_minus_one_or_zero_sets_no_resolution_and_any_other_does) {
    const int ofANewPicture = 3780;
    const int rows[][2] = {{-1, ofANewPicture}, {0, ofANewPicture}, {-2, -79}, {203, 7992}};
    startLibrary();
    for (size_t i = 0; i < sizeof rows / sizeof *rows; ++i) {
        const char* document = writeLayout(
            "page.xml", textOf("<dpi>%d</dpi><width>9</width><height>9</height>", rows[i][0]));
        CHECK_INT(rows[i][1], bmpDotsPerMetre(render(document, "page.bmp")));
    }
}

/* A composite symbol whose primary message is 120 bytes of numbers and this. */
static const char* renderPrimary(const char* name, const char* tail) {
    char numbers[121];
    for (size_t i = 0; i < sizeof numbers / 6; ++i) {
        memcpy(numbers + 6 * i, "[20]12", 7);
    }
    return renderLayout(name,
                        textOf(CANVAS_OF(600, 100) "<VelnorItem class='barcode'><type>131</type>"
                                                   "<inputmode>2</inputmode><text>[10]ABC123</text>"
                                                   "<primary>%s%s</primary></VelnorItem>",
                               numbers, tail));
}

CASE(a_primary_message_has_at_most_127_bytes) {
    startLibrary();
    renderLayout("blank", CANVAS_OF(600, 100));
    const char* longest = renderPrimary("longest", "[10]abc");
    CHECK(!sameContent(longest, "blank.png"));
    CHECK(!sameContent(longest, renderPrimary("shorter", "[10]ab")));
    CHECK(sameContent(longest, renderPrimary("longer", "[10]abcd")));
    CHECK(sameContent(longest, renderPrimary("letter", "[10]abc\xc3\xa9")));
}

CASE(a_canvas_without_height_ends_below_its_content) {
    startLibrary();
    CHECK_INT(16, pngHeight(renderLayout("empty", "<dpi>203</dpi><width>100</width>")));
    CHECK_INT(10 + 40 + 16, pngHeight(renderLayout("box", "<dpi>203</dpi><width>100</width>" BOX)));
}

CASE(a_canvas_without_width_makes_a_picture_of_its_margins_alone) {
    startLibrary();
    captureOutput();
    checkNoPicture(writeLayout("none.xml", "<height>50</height>" BOX QR_CODE LABEL));
    const char* picture =
        renderLayout("margins", "<height>50</height><margin>1,2,3,4</margin>" BOX QR_CODE LABEL);
    checkSilent();
    CHECK_INT(4, pngWidth(picture));
    CHECK_INT(6, pngHeight(picture));
}

CASE(a_canvas_beyond_all_measure_makes_no_picture) {
    startLibrary();
    captureOutput();
    checkNoPicture(writeLayout("huge.xml", CANVAS_OF(2000000000, 2000000000) BOX QR_CODE LABEL));
    checkNoPicture(writeLayout("wide.xml", CANVAS_OF(100000, 100000) BOX QR_CODE LABEL));
    checkSilent();
}

CASE(an_item_that_cannot_be_drawn_does_not_hinder_the_others) {
    startLibrary();
    writeFile("broken.png", "no picture");
    captureOutput();
    renderLayout("good", CANVAS_OF(200, 100) BOX);
    renderLayout("bad", CANVAS_OF(200, 100) BOX
                 "<VelnorItem class='image'><filepath>missing.png</filepath></VelnorItem>"
                 "<VelnorItem class='image'><filepath>broken.png</filepath></VelnorItem>"
                 "<VelnorItem class='barcode'><type>13</type><text>letters</text></VelnorItem>"
                 "<VelnorItem class='barcode'><type>9999</type><text>1</text></VelnorItem>"
                 "<VelnorItem class='nothing'/>");
    checkSilent();
    CHECK(sameContent("good.png", "bad.png"));
}

CASE(a_change_of_a_dictionary_shows_in_the_next_picture) {
    startLibrary();
    void* handler =
        xmlToImgCreateHandler(writeLayout("page.xml", "<width>%w%</width><height>20</height>"));
    CHECK_INT(0, drawnWidth(handler));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "w", "30"));
    CHECK_INT(30, drawnWidth(handler));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "canvas.width", "40"));
    CHECK_INT(40, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* A canvas that holds `levels` elements, each inside the one before. */
static const char* nested(int levels) {
    const size_t start = strlen("<a>");
    const size_t end = strlen("</a>");
    char* text = caseMemory((size_t)levels * (start + end) + 1);
    for (int i = 0; i < levels; ++i) {
        memcpy(text + (size_t)i * start, "<a>", start);
        memcpy(text + (size_t)levels * start + (size_t)i * end, "</a>", end);
    }
    return textOf(CANVAS_OF(20, 20) "%s", text);
}

CASE(a_document_nested_beyond_measure_makes_no_picture) {
    startLibrary();
    checkNoPicture(writeLayout("deep.xml", nested(1000)));
    checkNoPicture(writeLayout("deeper.xml", nested(100000)));
    CHECK(exists(renderLayout("shallow", nested(100))));
}

static void* drawAgainAndAgain(void* handler) {
    const char* output = textOf("thread-%p.png", handler);
    for (int i = 0; i < Repetitions; ++i) {
        CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
    }
    return (void*)output;
}

CASE(one_handler_may_be_used_by_one_thread_after_the_other) {
    startLibrary();
    const char* document = writeLayout("page.xml", EVERYTHING);
    render(document, "main.png");
    void* handler = xmlToImgCreateHandler(document);
    for (int i = 0; i < Threads; ++i) {
        pthread_t thread;
        void* output = NULL;
        CHECK(pthread_create(&thread, NULL, drawAgainAndAgain, handler) == 0);
        CHECK(pthread_join(thread, &output) == 0);
        CHECK(sameContent(output, "main.png"));
    }
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
