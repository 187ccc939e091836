#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/parsed_layout.h"
#include "render/velnorimage.h"

using velnor::withHandler;

int xmlToImgCheckCorrect(void* handler, char* messages, int size) {
    return withHandler(handler, [&](VelnorXml& xml) {
        const auto layout = velnor::parseLayout(xml);
        return layout.result != 0 ? layout.result
                                  : VelnorXml::CheckIsCorrect(layout.canvas.get(), messages, size);
    });
}

int xmlToImgGetPrinterSettings(void* handler, int* presentation, int* ejectRetract, int* timeout) {
    return withHandler(handler, [&](VelnorXml& xml) {
        return xml.GetPrinterSettings(presentation, ejectRetract, timeout);
    });
}

int xmlToImgGetFontProperty(void* handler, const char* family, int* bold, int* italic) {
    return withHandler(handler, [&](VelnorXml&) {
        return VelnorXml::GetFontProperty(QString::fromUtf8(family), bold, italic);
    });
}

int xmlToImgGetFontPropertyUnicode(void* handler, const unsigned short* family, int length,
                                   int* bold, int* italic) {
    return withHandler(handler, [&](VelnorXml&) {
        return VelnorXml::GetFontProperty(QString::fromUtf16(family, length), bold, italic);
    });
}

char* xmlToImgAvailableFontList() {
    return velnor::hostCall<char*>(nullptr, [] {
        const velnor::FontReadLock fonts;
        return VelnorImage::GetAvailableFont();
    });
}

void xmlToImgFreeFontList(char* list) {
    delete[] list;
}
