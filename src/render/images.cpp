// Picture files on the surface: scaled, fitted to a box, rotated.
#include "document/dots.h"
#include "files/input_file.h"
#include "render/picture_file.h"
#include "render/surface_painter.h"
#include "render/velnorimage.h"

#include <algorithm>

namespace {

constexpr int NaturalPercent = 100;
constexpr int FitInside = 1;
constexpr int FillAndCrop = 2;

// Both lengths of the box are given. May crop the image, at its right or its bottom.
void fitToBox(QImage& image, int width, int height, int aspect, double& factorX, double& factorY) {
    factorX = static_cast<double>(width) / image.width();
    factorY = static_cast<double>(height) / image.height();
    if (aspect == FitInside) {
        factorX = factorY = std::min(factorX, factorY);
    } else if (aspect == FillAndCrop && factorX < factorY) {
        image = image.copy(0, 0, velnor::truncateToDots(width / factorY), image.height());
        factorX = factorY;
    } else if (aspect == FillAndCrop) {
        image = image.copy(0, 0, image.width(), velnor::truncateToDots(height / factorX));
        factorY = factorX;
    }
}

} // namespace

void VelnorImage::FixImageScaling(QImage* image, int scalex, int scaley, int width, int height,
                                  double* factorX, double* factorY, int aspect) {
    *factorX = 1.0;
    *factorY = 1.0;
    if (image->isNull()) {
        return;
    }
    if (width >= 1 && height >= 1) {
        fitToBox(*image, width, height, aspect, *factorX, *factorY);
    } else if (height >= 1) {
        *factorX = *factorY = static_cast<double>(height) / image->height();
    } else if (width >= 1) {
        *factorX = *factorY = static_cast<double>(width) / image->width();
    } else {
        *factorX = factorFromPercent(scalex);
        *factorY = factorFromPercent(scaley);
    }
}

int VelnorImage::DrawOverlayImage(const QString& path, int x, int y, int scalex, int scaley,
                                  int width, int height, int rotation, int aspect) {
    if (!canBeDrawnOn() || !velnor::InputFile::exists(path)) {
        return -1;
    }
    return DrawOverlayPicture(velnor::loadPicture(path), x, y, scalex, scaley, width, height,
                              rotation, aspect);
}

int VelnorImage::DrawOverlayPicture(QImage picture, int x, int y, int scalex, int scaley, int width,
                                    int height, int rotation, int aspect) {
    if (!canBeDrawnOn()) {
        return -1;
    }
    const bool natural = rotation == 0 && scalex == NaturalPercent && scaley == NaturalPercent &&
                         width == -1 && height == -1;
    double factorX = 1.0;
    double factorY = 1.0;
    if (!natural) {
        FixImageScaling(&picture, scalex, scaley, width, height, &factorX, &factorY, aspect);
    }
    const auto transformAbout = [&](const QPoint& position) {
        return natural
                   ? QTransform()
                   : TransformScaleRotate(position.x(), position.y(), factorX, factorY, rotation);
    };
    const QPoint position(x, y);
    const QTransform transform = transformAbout(position);
    const QRectF box(position, picture.size());
    if (painting == Painting::Everything) {
        velnor::paintInParts(*image, position, transform.mapRect(box), 1,
                             [&](QPainter& painter, const QPoint& onPart) {
                                 painter.setTransform(transformAbout(onPart));
                                 painter.drawImage(onPart, picture);
                             });
    }
    recordCoverage(box, transform);
    return 0;
}
