#include "document/dots.h"
#include "render/blank_surface.h"
#include "render/picture_file.h"
#include "render/velnorimage.h"

namespace {

constexpr int DotsPerMetreAt96Dpi = 3780;

} // namespace

VelnorImage::VelnorImage(int width, int height) {
    CreateBaseEmptyImage(width, height);
}

VelnorImage::~VelnorImage() = default;

int VelnorImage::CreateBaseEmptyImage(int width, int height) {
    image = std::make_unique<QImage>(velnor::makeBlankSurface(width, height));
    image->setDotsPerMeterX(DotsPerMetreAt96Dpi);
    image->setDotsPerMeterY(DotsPerMetreAt96Dpi);
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
