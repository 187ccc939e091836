/* Calls before the application is up: they fail softly or work, and start-up is as always after. */
#include "support/files.h"
#include "support/fonts.h"
#include "support/guarded.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

enum { TextSize = 64 };

#define PAGE                                                                                       \
    CANVAS_OF(77, 50)                                                                              \
    "<presentation>3</presentation><VelnorItem class='text' id='label'><text link='l'>old</text>"  \
    "<fontname>Liberation Sans</fontname><fontsize>10</fontsize></VelnorItem>"

static void* handlerOfPage(void) {
    return xmlToImgCreateHandler(writeLayout("page.xml", PAGE));
}

CASE(validation_fails_with_an_empty_buffer) {
    void* handler = handlerOfPage();
    const Guarded buffer = guardedBuffer(TextSize);
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, (char*)buffer.bytes, TextSize));
    checkFilled(buffer, "", TextSize);
    startLibrary();
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(font_properties_fail_with_both_zero) {
    void* handler = handlerOfPage();
    int bold = 7;
    int italic = 7;
    CHECK_INT(-1, xmlToImgGetFontProperty(handler, "Liberation Sans", &bold, &italic));
    CHECK_INT(0, bold);
    CHECK_INT(0, italic);
    const unsigned short* family = wideOf("Liberation Sans");
    CHECK_INT(-1, xmlToImgGetFontPropertyUnicode(handler, family, UpToZero, &bold, &italic));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(there_is_no_font_list) {
    CHECK(xmlToImgAvailableFontList() == NULL);
    startLibrary();
    char* list = xmlToImgAvailableFontList();
    CHECK(list != NULL);
    xmlToImgFreeFontList(list);
}

CASE(printer_settings_can_be_read) {
    void* handler = handlerOfPage();
    int settings[3] = {7, 7, 7};
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &settings[0], &settings[1], &settings[2]));
    CHECK_INT(3, settings[0]);
    CHECK_INT(-1, settings[1]);
    CHECK_INT(-1, settings[2]);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(parameter_files_can_be_applied) {
    void* handler = handlerOfPage();
    const char* params = writeFile("params.xml", "<VelnorParams><VelnorParam id='label'><l>new</l>"
                                                 "</VelnorParam></VelnorParams>");
    CHECK_INT(0, xmlToImgSetDictionaryFromParamFile(handler, params));
    startLibrary();
    char value[TextSize];
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "label.text", value, TextSize));
    CHECK_TEXT("new", value);
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

/* What every kind of call leaves on the thread must not get in the way of start-up on another. */
CASE(start_up_on_another_thread_is_silent_afterwards) {
    captureOutput();
    void* handler = handlerOfPage();
    char value[TextSize];
    int ignored = 0;
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "label.text", value, TextSize));
    CHECK_INT(0, xmlToImgGetPrinterSettings(handler, &ignored, &ignored, &ignored));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, value, TextSize));
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("before.png")));
    startLibrary();
    CHECK_INT(77, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    checkSilent();
}
