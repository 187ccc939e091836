/* How much stack a thread of the host needs to draw. */
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <string.h>

enum { KiB = 1024, LongestData = 17399, DeepestNesting = 250 };

static void* drawDocuments(void* given) {
    const Documents* documents = given;
    for (size_t i = 0; i < documents->count; ++i) {
        drawDocument(documents->paths[i], "drawn.png");
    }
    return NULL;
}

static void drawOnStackOf(size_t size, Documents documents) {
    pthread_attr_t attributes;
    pthread_t thread;
    CHECK(pthread_attr_init(&attributes) == 0);
    CHECK(pthread_attr_setstacksize(&attributes, size) == 0);
    CHECK(pthread_create(&thread, &attributes, drawDocuments, &documents) == 0);
    CHECK(pthread_join(thread, NULL) == 0);
    CHECK(pthread_attr_destroy(&attributes) == 0);
}

static void drawLayoutOnStackOf(size_t size, const char* children) {
    const char* path = writeLayout("page.xml", children);
    const Documents page = {&path, 1};
    drawOnStackOf(size, page);
    CHECK(exists("drawn.png"));
}

CASE(texts_and_shapes_need_less_than_128_kib) {
    startLibrary();
    drawOnStackOf((size_t)128 * KiB, goldenDocuments("text/*"));
    drawOnStackOf((size_t)128 * KiB, goldenDocuments("shapes/*"));
}

CASE(tickets_need_less_than_256_kib) {
    startLibrary();
    drawOnStackOf((size_t)256 * KiB, exampleDocuments());
    drawOnStackOf((size_t)256 * KiB, goldenDocuments("barcodes/*"));
    drawOnStackOf((size_t)256 * KiB, goldenDocuments("images/*"));
}

static const char* longBarcode(int type) {
    char* data = caseMemory(LongestData + 1);
    memset(data, 'A', LongestData);
    return textOf(
        CANVAS_OF(
            600, 600) "<VelnorItem class='barcode' id='code'><width>500</width><height>500</height>"
                      "<type>%d</type><text>%s</text></VelnorItem>",
        type, data);
}

/* Codablock F takes the most. */
static const int HungryTypes[] = {58, 74, 92, 116, 144};

CASE(the_longest_barcode_data_need_less_than_512_kib) {
    startLibrary();
    for (size_t i = 0; i < sizeof HungryTypes / sizeof *HungryTypes; ++i) {
        drawLayoutOnStackOf((size_t)512 * KiB, longBarcode(HungryTypes[i]));
    }
}

CASE(the_deepest_document_needs_less_than_128_kib) {
    const char* open = "";
    const char* close = "";
    for (int depth = 0; depth < DeepestNesting; ++depth) {
        open = textOf("%s<g class='group' id='g'>", open);
        close = textOf("%s</g>", close);
    }
    startLibrary();
    drawLayoutOnStackOf((size_t)128 * KiB, textOf(CANVAS_OF(200, 100) BOX "%s%s", open, close));
}
