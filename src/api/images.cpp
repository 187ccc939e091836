#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/parsed_layout.h"
#include "api/wide_text.h"
#include "render/velnorimage.h"

namespace {

// Blind on purpose: hosts look for the output file.
int createImage(VelnorXml& xml, const char* path) {
    VelnorImage::CreateImageFromCanvas(velnor::parseLayout(xml).canvas.get(), path);
    return velnor::Success;
}

} // namespace

int xmlToImgCreateImage(void* handler, const char* path) {
    return velnor::withHandler(handler, [&](VelnorXml& xml) { return createImage(xml, path); });
}

int xmlToImgCreateImageUnicode(void* handler, const unsigned short* path, int length) {
    return velnor::withHandler(handler, [&](VelnorXml& xml) {
        return createImage(xml, velnor::utf8FromWide(path, length).constData());
    });
}
