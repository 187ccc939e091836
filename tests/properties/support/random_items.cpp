#include "support/random_items.h"

#include <stdexcept>

namespace {

QByteArray randomWords(Random& random, int count) {
    static const std::vector<QByteArray> words = {"Gate",  "ticket", "12.50", "\xC3\x84pfel",
                                                  "Quay7", "jolly",  "WAVE",  "\xE2\x82\xAC 9"};
    QByteArray text = random.oneOf(words);
    for (int i = 1; i < count; ++i) {
        text += (random.oneIn(4) ? '\n' : ' ') + random.oneOf(words);
    }
    return text;
}

QByteArray textFields(Random& random) {
    static const std::vector<int> flags = {0, 1, 2, 4, 4096, 4100, 4104, 128, 132, 66};
    static const std::vector<QByteArray> families = {"Liberation Sans", "Liberation Sans",
                                                     "Liberation Mono"};
    QByteArray fields =
        element("fontname", random.oneOf(families)) + element("bold", random.number(0, 1)) +
        element("italic", random.number(0, 1)) + element("flags", random.oneOf(flags));
    if (random.oneIn(4)) {
        // Letters of 64 dots and more are drawn in another way than small ones.
        return fields + element("fontsize", random.number(20, 30)) + element("text", "W7");
    }
    fields += element("fontsize", random.number(4, 9));
    if (random.oneIn(2)) {
        return fields + element("text", randomWords(random, 1));
    }
    fields += element("text", randomWords(random, 3)) + element("width", random.number(80, 180));
    return random.oneIn(2) ? fields : fields + element("height", random.number(60, 160));
}

QByteArray imageFields(Random& random) {
    static const std::vector<QByteArray> files = {"acorn.png", "car.png", "paper_plane.png"};
    const QByteArray fields = element("filepath", random.oneOf(files));
    switch (random.number(0, 3)) {
    case 0:
        return fields;
    case 1:
        return fields + element("scalex", random.number(40, 150)) +
               element("scaley", random.number(40, 150));
    case 2:
        return fields + element("width", random.number(40, 150));
    default:
        return fields + element("width", random.number(40, 150)) +
               element("height", random.number(40, 150)) + element("aspect", random.number(0, 2));
    }
}

QByteArray barcodeFields(Random& random) {
    static const std::vector<int> types = {8, 13, 20, 58, 71, 92};
    return element("type", random.oneOf(types)) +
           element("text", random.number(10000000, 99999999)) +
           element("hrt", random.number(0, 1)) + element("width", random.number(60, 180)) +
           element("height", random.number(40, 120));
}

QByteArray outlineFields(Random& random) {
    return element("thickness", random.number(1, 9)) + element("style", random.number(0, 1));
}

QByteArray boxFields(Random& random) {
    return outlineFields(random) + element("width", random.number(20, 180)) +
           element("height", random.number(20, 180));
}

QByteArray rectangleFields(Random& random) {
    return boxFields(random) + element("radius", random.oneIn(2) ? 0 : random.number(1, 20));
}

QByteArray lineFields(Random& random) {
    return outlineFields(random) + element("length", random.number(10, 220));
}

struct Kind {
    QByteArray name;
    QByteArray (*fields)(Random&);
};

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> list = {
        {"text", textFields},           {"image", imageFields}, {"barcode", barcodeFields},
        {"rectangle", rectangleFields}, {"ellipse", boxFields}, {"line", lineFields}};
    return list;
}

} // namespace

const std::vector<QByteArray>& itemKinds() {
    static const std::vector<QByteArray> names = [] {
        std::vector<QByteArray> list;
        for (const Kind& kind : kinds()) {
            list.push_back(kind.name);
        }
        return list;
    }();
    return names;
}

Item randomItem(Random& random, const QByteArray& kind) {
    for (const Kind& known : kinds()) {
        if (known.name == kind) {
            Item item;
            item.kind = kind;
            item.fields = known.fields(random);
            return item;
        }
    }
    throw std::invalid_argument("no kind of item: " + kind.toStdString());
}

Item randomItem(Random& random) {
    return randomItem(random, random.oneOf(itemKinds()));
}

int randomQuarterTurn(Random& random) {
    return 90 * random.number(1, 3);
}

int randomAngle(Random& random) {
    return random.oneIn(3) ? randomQuarterTurn(random) : random.number(1, 359);
}
