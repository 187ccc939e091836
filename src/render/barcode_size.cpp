// Filling an item's box with a symbol as far as whole module multiples allow.
#include "document/dots.h"
#include "render/velnorbarcode.h"

#include <QImage>

#include <algorithm>

namespace {

constexpr int DefaultBarHeight = -1;
constexpr float DefaultScale = 0.0F;
constexpr float SmallestScale = 0.5F; // one dot a module

// How often the length fits into the box, in steps of the smallest scale.
float scaleFor(int boxLength, int smallestLength) {
    const float times = static_cast<float>(boxLength) / static_cast<float>(smallestLength);
    return static_cast<float>(velnor::truncateToDots(times)) * SmallestScale;
}

struct Fit {
    int barHeight;
    float scale;
};

// `extra`: the dots that text and quiet space take beside the bars. `smallest`: the symbol's
// picture at the smallest scale.
Fit fitVariableHeight(const QSize& box, const QSize& smallest, int extra) {
    const bool heightGiven = box.height() >= 1;
    if (box.width() < 1) {
        const int height = box.height();
        return {height > extra ? (height - extra) / 2 : height, DefaultScale};
    }
    const float scale = std::max(scaleFor(box.width(), smallest.width()), SmallestScale);
    if (!heightGiven) {
        return {DefaultBarHeight, scale};
    }
    return {(velnor::truncateToDots(static_cast<float>(box.height()) / scale) - extra) / 2, scale};
}

Fit fitFixedHeight(const QSize& box, const QSize& smallest) {
    const float byHeight = scaleFor(box.height(), smallest.height());
    float scale = byHeight;
    if (box.width() >= 1) {
        const float byWidth = scaleFor(box.width(), smallest.width());
        scale = box.height() >= 1 ? std::min(byWidth, byHeight) : byWidth;
    }
    return {DefaultBarHeight, std::max(scale, SmallestScale)};
}

} // namespace

int VelnorBarcode::CreateBarcode(int type, int hrt, const char* data, int inputmode,
                                 const char* primary, int option1, int option2, int option3,
                                 QImage* picture, int width, int height) {
    int doubledWidth = 0;
    int doubledHeight = 0;
    const auto encode = [&](const Fit& fit) {
        return CreateBaseBarcode(type, hrt, data, inputmode, primary, option1, option2, option3,
                                 picture, &doubledWidth, &doubledHeight, fit.barHeight, fit.scale);
    };
    const int smallestResult = encode({DefaultBarHeight, SmallestScale});
    if (smallestResult != 0 || (width < 1 && height < 1)) {
        return smallestResult;
    }
    const QSize smallest = picture->size();
    if (smallest.isEmpty()) {
        return -1;
    }
    const QSize box(width, height);
    const int extra = std::max(smallest.height() - doubledHeight, 0);
    // A refusal leaves the smallest picture in place.
    return encode(VariableHeightAvailable(type) ? fitVariableHeight(box, smallest, extra)
                                                : fitFixedHeight(box, smallest));
}
