#include "support/pictures.h"

namespace {

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;

template <typename Visit>
void visitDots(const QImage& picture, Visit visit) {
    const QImage dots = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < dots.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(dots.constScanLine(y));
        for (int x = 0; x < dots.width(); ++x) {
            visit(x, y, line[x]);
        }
    }
}

} // namespace

QRect inkOf(const QImage& picture) {
    QRect ink;
    visitDots(picture, [&ink](int x, int y, QRgb dot) {
        if (dot != White) {
            ink = ink.united(QRect(x, y, 1, 1));
        }
    });
    return ink;
}

int inkDots(const QImage& picture) {
    int count = 0;
    visitDots(picture, [&count](int, int, QRgb dot) { count += dot != White ? 1 : 0; });
    return count;
}

bool hasGrey(const QImage& picture) {
    bool grey = false;
    visitDots(picture,
              [&grey](int, int, QRgb dot) { grey = grey || (dot != White && dot != Black); });
    return grey;
}
