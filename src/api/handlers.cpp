#include "velnorxmltoimg.h"

#include "api/call_guard.h"
#include "api/wide_text.h"

int xmlToImgSetEmbeddedFontKeepFlag(int flag) {
    __atomic_store_n(&VelnorXml::embeddedFontKeepFlag, flag != 0, __ATOMIC_RELAXED);
    return flag != 0 ? 1 : 0;
}

void* xmlToImgCreateHandler(const char* path) {
    return xmlToImgCreateHandlerWithDirs(path, nullptr, nullptr);
}

void* xmlToImgCreateHandlerUnicode(const unsigned short* path, int length) {
    return xmlToImgCreateHandlerWithDirsUnicode(path, length, nullptr, 0, nullptr, 0);
}

void* xmlToImgCreateHandlerWithDirs(const char* path, const char* images, const char* fonts) {
    return velnor::hostCall<void*>(nullptr, [&] { return new VelnorXml(path, images, fonts); });
}

void* xmlToImgCreateHandlerWithDirsUnicode(const unsigned short* path, int pathLength,
                                           const unsigned short* images, int imagesLength,
                                           const unsigned short* fonts, int fontsLength) {
    return velnor::hostCall<void*>(nullptr, [&] {
        return new VelnorXml(velnor::utf8FromWide(path, pathLength).constData(),
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
