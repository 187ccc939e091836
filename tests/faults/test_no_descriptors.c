/* A process that has no descriptors left: functions fail, and work again once there are some. */
#include "support/descriptors.h"
#include "support/files.h"
#include "support/fonts.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"

#include <velnorxmltoimg.h>

#include <pthread.h>
#include <stdio.h>

enum { MostFree = 6, ListSize = 64, Threads = 20 };

#define PICTURE                                                                                    \
    "<VelnorItem class='image'><x>5</x><y>60</y><width>40</width><height>30</height>"              \
    "<filepath>shown.png</filepath></VelnorItem>"
#define PAGE CANVAS_OF(200, 100) BOX QR_CODE LABEL PICTURE

static void* startWithHandler(void) {
    hideSystemFonts();
    startLibrary();
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", SANS);
    renderLayout("shown", CANVAS_OF(50, 50) BOX);
    return xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
}

static void draw(void* handler, const char* output) {
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
}

CASE(documents_cannot_be_read_without_a_descriptor) {
    void* handler = startWithHandler();
    char text[ListSize];
    leaveDescriptors(0);
    CHECK_INT(-1, xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, ListSize));
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "canvas.link", "1"));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, text, ListSize));
    draw(handler, "page.png");
    allowDescriptors();
    CHECK(!exists("page.png"));
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "canvas.width", text, ListSize));
    CHECK_TEXT("200", text);
    draw(handler, "page.png");
    CHECK(exists("page.png"));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(parameter_files_cannot_be_read_without_a_descriptor) {
    void* handler = startWithHandler();
    const char* params =
        writeFile("params.xml", "<VelnorParams><VelnorParam id='canvas'><width>70</width>"
                                "</VelnorParam></VelnorParams>");
    leaveDescriptors(0);
    CHECK_INT(-1, xmlToImgSetDictionaryFromParamFile(handler, params));
    allowDescriptors();
    CHECK_INT(200, drawnWidth(handler));
    CHECK_INT(0, xmlToImgSetDictionaryFromParamFile(handler, params));
    CHECK_INT(70, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* With each number of descriptors more parts of the page can be drawn; none of them breaks it. */
CASE(every_number_of_free_descriptors_makes_a_picture_or_none) {
    void* handler = startWithHandler();
    captureOutput();
    draw(handler, "whole.png");
    for (int count = 0; count <= MostFree; ++count) {
        remove(pathOf("page.png"));
        leaveDescriptors(count);
        draw(handler, "page.png");
        allowDescriptors();
        CHECK(!exists("page.png.part") && !exists("page.png.BARCODE.PNG"));
        if (exists("page.png")) {
            CHECK_INT(200, pngWidth("page.png"));
        }
        draw(handler, "page.png");
        CHECK(sameContent("page.png", "whole.png"));
    }
    checkSilent();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(an_earlier_picture_stays_without_a_descriptor) {
    void* handler = startWithHandler();
    writeFile("page.png", "earlier");
    leaveDescriptors(0);
    draw(handler, "page.png");
    allowDescriptors();
    CHECK_TEXT("earlier", (const char*)readFile("page.png").bytes);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(handlers_made_without_a_descriptor_have_no_fonts) {
    void* whole = startWithHandler();
    draw(whole, "whole.png");
    CHECK_INT(0, xmlToImgFreeHandler(whole));
    for (int count = 0; count <= 2; ++count) {
        leaveDescriptors(count);
        void* handler = xmlToImgCreateHandler(pathOf("page.xml"));
        allowDescriptors();
        CHECK(handler != NULL);
        draw(handler, "page.png");
        CHECK_INT(0, xmlToImgFreeHandler(handler));
    }
    render("page.xml", "page.png");
    CHECK(sameContent("page.png", "whole.png"));
}

CASE(font_queries_need_no_descriptor) {
    void* handler = startWithHandler();
    int bold = 7;
    int italic = 7;
    captureOutput();
    leaveDescriptors(0);
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic));
    char* list = xmlToImgAvailableFontList();
    allowDescriptors();
    CHECK(list != NULL);
    xmlToImgFreeFontList(list);
    checkSilent();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

static void* drawOnThread(void* handler) {
    leaveDescriptors(0);
    draw(handler, "page.png");
    allowDescriptors();
    draw(handler, "page.png");
    CHECK(exists("page.png"));
    CHECK(remove(pathOf("page.png")) == 0);
    return NULL;
}

CASE(threads_that_start_without_a_descriptor_draw_once_there_are_some) {
    void* handler = startWithHandler();
    captureOutput();
    for (int i = 0; i < Threads; ++i) {
        pthread_t thread;
        CHECK(pthread_create(&thread, NULL, drawOnThread, handler) == 0);
        CHECK(pthread_join(thread, NULL) == 0);
    }
    checkSilent();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}
