// The program golden_bmp: the surface's writer of dithered BMP files, which no function of the C
// interface reaches, so this program is linked with the library's objects.
#include "render/velnorimage.h"
#include "rendering.h"

#include <QFileInfo>
#include <QImage>

#include <stdexcept>

namespace golden {

namespace {

constexpr double MetresPerInch = 0.0254;

} // namespace

QString finish(const QString& png) {
    const int dpi = qRound(QImage(png).dotsPerMeterX() * MetresPerInch);
    VelnorImage surface(0, 0);
    surface.CreateBaseImage(png.toUtf8().constData());
    surface.SaveImageBmp(png.toUtf8().constData(), dpi, 0, 0, 0, 0);
    const QFileInfo file(png);
    const QString bmp =
        file.path() + QLatin1Char('/') + file.completeBaseName() + QLatin1String(".bmp");
    if (!QFileInfo::exists(bmp)) {
        throw std::runtime_error("no BMP file was written");
    }
    return bmp;
}

bool isMine(const GoldenCase& golden) {
    return golden.picture.endsWith(QLatin1String(".bmp"));
}

} // namespace golden
