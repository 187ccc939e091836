// A layout document becomes an image file.
#include "support/drawing.h"
#include "support/handler.h"
#include "support/input.h"
#include "support/scratch.h"
#include "support/target.h"

namespace {

// BMP twice: it is the cheapest to write.
constexpr const char* Outputs[] = {"picture.bmp", "picture.png", "picture.ppm", "picture.bmp",
                                   "picture.jpg"};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view document = fuzz::textOf(data, size);
    fuzz::writeFile("layout.xml", document);
    const fuzz::Handler handler = fuzz::handlerOf("layout.xml");
    fuzz::drawTwice(handler.get(), Outputs[fuzz::numberFrom(document, 0, 4)], {"layout.xml"});
    return 0;
}
