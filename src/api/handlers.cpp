#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/wide_text.h"

namespace {

void* newHandler(const char* path, const char* images, const char* fonts) {
    return velnor::guardedWithMemory<void*>(nullptr,
                                            [&] { return new VelnorXml(path, images, fonts); });
}

} // namespace

int xmlToImgSetEmbeddedFontKeepFlag(int flag) {
    VelnorXml::embeddedFontKeepFlag = flag != 0;
    return flag != 0 ? 1 : 0;
}

void* xmlToImgCreateHandler(const char* path) {
    return newHandler(path, nullptr, nullptr);
}

void* xmlToImgCreateHandlerUnicode(const unsigned short* path, int length) {
    return velnor::guardedWithMemory<void*>(nullptr, [&] {
        return newHandler(velnor::utf8FromWide(path, length).constData(), nullptr, nullptr);
    });
}

void* xmlToImgCreateHandlerWithDirs(const char* path, const char* images, const char* fonts) {
    return newHandler(path, images, fonts);
}

void* xmlToImgCreateHandlerWithDirsUnicode(const unsigned short* path, int pathLength,
                                           const unsigned short* images, int imagesLength,
                                           const unsigned short* fonts, int fontsLength) {
    return velnor::guardedWithMemory<void*>(nullptr, [&] {
        return newHandler(velnor::utf8FromWide(path, pathLength).constData(),
                          velnor::utf8FromWide(images, imagesLength).constData(),
                          velnor::utf8FromWide(fonts, fontsLength).constData());
    });
}

int xmlToImgFreeHandler(void* handler) {
    if (handler == nullptr) {
        return velnor::Failure;
    }
    // Also where no memory is left.
    return velnor::guarded(velnor::Failure, [handler] {
        const velnor::HostThread thread;
        delete static_cast<VelnorXml*>(handler);
        return velnor::Success;
    });
}
