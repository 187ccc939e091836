#include "document/dots.h"
#include "render/blank_surface.h"
#include "render/picture_file.h"
#include "render/sheet.h"
#include "render/velnorimage.h"

#include <utility>

namespace {

constexpr int DotsPerMetreAt96Dpi = 3780;

void setSurfaceResolution(QImage& surface) {
    surface.setDotsPerMeterX(DotsPerMetreAt96Dpi);
    surface.setDotsPerMeterY(DotsPerMetreAt96Dpi);
}

} // namespace

VelnorImage::VelnorImage(int width, int height) {
    CreateBaseEmptyImage(width, height);
}

VelnorImage::VelnorImage(std::shared_ptr<velnor::Sheet> drawnSheet, Painting what)
    : painting(what), sheet(std::move(drawnSheet)),
      image(std::make_unique<QImage>(sheet->surface())) {
    setSurfaceResolution(*image);
}

VelnorImage::~VelnorImage() = default;

int VelnorImage::CreateBaseEmptyImage(int width, int height) {
    sheet.reset();
    image = std::make_unique<QImage>(velnor::makeBlankSurface(width, height));
    setSurfaceResolution(*image);
    return 0;
}

int VelnorImage::CreateBaseImage(const char* path) {
    const QString file = QString::fromLatin1(path);
    const QSize size = velnor::loadPicture(file).size();
    CreateBaseEmptyImage(size.width(), size.height());
    DrawOverlayImage(file, 0, 0, 100, 100, -1, -1, 0, 0);
    return 0;
}

int VelnorImage::ResizeImage(int, int) {
    return 0;
}

void VelnorImage::SetCropAtCurrentY(bool crop) {
    cropAtCurrentY = crop;
}

int VelnorImage::getCurrentY() const {
    return currentY;
}

void VelnorImage::setCurrentY(int y) {
    currentY = y;
}

bool VelnorImage::canBeDrawnOn() const {
    return image != nullptr && !image->isNull();
}

void VelnorImage::recordCoverage(const QRectF& box, const QTransform& transform) {
    boundingRect = GetBoundingRectUsingTransform(box, transform);
    currentY = velnor::roundToDots(boundingRect.y() + boundingRect.height());
}
