#include "photograph.h"

#include <algorithm>
#include <array>

namespace bench {

namespace {

constexpr int SkyTop = 150;
constexpr int SkyRange = 100;

// A hill is a parabola; whole numbers alone, so that every machine makes the same dots.
struct Hill {
    qint64 peakX; // thousandths of the width and of the height
    qint64 peakY;
    qint64 steepness; // per cent of the height, at a distance of the width
    int shade;
};

constexpr std::array<Hill, 4> Hills = {
    {{250, 420, 90, 120}, {700, 360, 140, 100}, {420, 620, 60, 80}, {900, 700, 50, 60}}};

qint64 topOf(const Hill& hill, int x, int width, int height) {
    const qint64 distance = x * 1000LL / width - hill.peakX;
    return (hill.peakY * 1000 + hill.steepness * 10 * distance * distance / 1000) * height /
           1000000;
}

} // namespace

QImage makePhotograph(int width, int height) {
    QImage photograph(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(photograph.scanLine(y));
        const int sky = SkyTop + SkyRange * y / height;
        std::fill(row, row + width, qRgb(sky - 60, sky - 30, sky));
    }
    for (const Hill& hill : Hills) {
        for (int x = 0; x < width; ++x) {
            const auto top = static_cast<int>(std::max<qint64>(topOf(hill, x, width, height), 0));
            for (int y = top; y < height; ++y) {
                // Darker towards the foot of the hill.
                const int shade = hill.shade - 40 * (y - top) / height;
                reinterpret_cast<QRgb*>(photograph.scanLine(y))[x] =
                    qRgb(shade, shade + 30, shade / 2);
            }
        }
    }
    return photograph;
}

} // namespace bench
