#include "support/drawing.h"

#include "support/check.h"
#include "support/scratch.h"

#include <velnorxmltoimg.h>

#include <malloc.h>

namespace {

// Memory that is used without having been set shows as a difference between two pictures. Sanitizers
// have an allocator of their own, where this does nothing.
void fillNewMemoryWith(int byte) {
    mallopt(M_PERTURB, byte ^ 0xff);
}

} // namespace

std::string fuzz::draw(void* handler, const std::string& name,
                       const std::set<std::string>& others) {
    removeFile(name);
    MUST(xmlToImgCreateImage(handler, pathOf(name).c_str()) == 0);
    std::set<std::string> expected = others;
    expected.insert(name);
    MUST(holdsNothingBut(expected));
    const std::string picture = readFile(name);
    MUST(!exists(name) || !picture.empty());
    return picture;
}

std::string fuzz::drawTwice(void* handler, const std::string& name,
                            const std::set<std::string>& others) {
    fillNewMemoryWith(0x00);
    const std::string first = draw(handler, name, others);
    fillNewMemoryWith(0xaa);
    const std::string second = draw(handler, name, others);
    MUST(first == second);
    removeFile(name);
    return first;
}
