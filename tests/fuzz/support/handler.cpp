#include "support/handler.h"

#include "support/check.h"
#include "support/scratch.h"

#include <velnorxmltoimg.h>

namespace {

fuzz::Handler make(const std::string& document, const char* pictures) {
    fuzz::Handler handler(
        xmlToImgCreateHandlerWithDirs(fuzz::pathOf(document).c_str(), pictures, VELNOR_TEST_FONTS));
    MUST(handler != nullptr);
    return handler;
}

} // namespace

void fuzz::HandlerDeleter::operator()(void* handler) const {
    MUST(xmlToImgFreeHandler(handler) == 0);
}

fuzz::Handler fuzz::handlerOf(const std::string& document) {
    return make(document, VELNOR_TEST_PICTURES);
}

fuzz::Handler fuzz::handlerWithPicturesBeside(const std::string& document) {
    return make(document, nullptr);
}
