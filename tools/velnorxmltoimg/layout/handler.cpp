#include "layout/handler.h"

#include <velnorxmltoimg.h>

#include <new>

void tool::HandlerDeleter::operator()(void* handler) const {
    xmlToImgFreeHandler(handler);
}

tool::Handler tool::createHandler(const std::string& document, const std::string& images,
                                  const std::string& fonts) {
    Handler handler(xmlToImgCreateHandlerWithDirs(document.c_str(), images.c_str(), fonts.c_str()));
    if (!handler) {
        throw std::bad_alloc();
    }
    return handler;
}
