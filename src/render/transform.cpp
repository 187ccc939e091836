// Scaling and rotation about an item's position.
#include "render/velnorimage.h"

namespace {

constexpr int FullTurn = 360;

} // namespace

QTransform VelnorImage::TransformScaleRotate(int centreX, int centreY, double factorX,
                                             double factorY, int rotation) {
    const bool isAngle = rotation >= -FullTurn && rotation <= FullTurn;
    QTransform transform;
    transform.translate(centreX, centreY);
    transform.rotate(isAngle ? rotation : 0);
    transform.scale(factorX, factorY);
    transform.translate(-static_cast<double>(centreX), -static_cast<double>(centreY));
    return transform;
}

QTransform VelnorImage::TransformScaleRotate(int centreX, int centreY, int percentX, int percentY,
                                             int rotation) {
    return TransformScaleRotate(centreX, centreY, factorFromPercent(percentX),
                                factorFromPercent(percentY), rotation);
}

double VelnorImage::factorFromPercent(int percent) {
    return percent < 1 ? 1.0 : percent / 100.0;
}

QTransform VelnorImage::rotationAbout(const QPoint& position, int rotation) {
    return rotation == 0 ? QTransform()
                         : TransformScaleRotate(position.x(), position.y(), 100, 100, rotation);
}

QRectF VelnorImage::GetBoundingRectUsingTransform(const QRectF& rectangle,
                                                  const QTransform& transform) {
    return transform.mapRect(rectangle);
}
