#include "render/item_drawing.h"

namespace {

using velnor::Pass;

// An item without a rotation is drawn upright; the drawing operations take -1 as an angle.
int angleOf(int rotation) {
    return rotation == velnor::NotGiven ? 0 : rotation;
}

bool shapesAreAntialiased(const Pass& pass) {
    return VelnorImage::getAntialias(false, pass.canvas.antialiasShape);
}

void draw(const Pass& pass, const VelnorDrawableImage& item) {
    if (const auto picture = pass.pictures.ofFile(item.filepath)) {
        pass.surface.DrawOverlayPicture(*picture, item.x, item.y, item.scalex, item.scaley,
                                        item.width, item.height, angleOf(item.rotation),
                                        item.aspect);
    }
}

void draw(const Pass& pass, VelnorDrawableText& item) {
    pass.surface.SetFont(item.fontname, item.fontsize, pass.canvas.dpi, item.bold, item.italic,
                         VelnorImage::getAntialias(item.antialias, pass.canvas.antialiasText));
    pass.surface.DrawOverlayRectBoundedText(item.text, item.x, item.y, item.width, item.height,
                                            item.flags, angleOf(item.rotation));
    item.drawnFontSize = VelnorImage::pointsOnPaper(pass.surface.lastTextSize(), pass.canvas.dpi);
}

void draw(const Pass& pass, const VelnorDrawableBarcode& item) {
    if (const auto symbol = pass.pictures.ofBarcode(item)) {
        pass.surface.DrawOverlayPicture(*symbol, item.x, item.y, 100, 100, -1, -1,
                                        angleOf(item.rotation), 0);
    }
}

void draw(const Pass& pass, const VelnorDrawableRectangle& item) {
    pass.surface.DrawOverlayRectangle(item.x, item.y, item.width, item.height,
                                      angleOf(item.rotation), item.thickness, item.style,
                                      item.radius, shapesAreAntialiased(pass));
}

void draw(const Pass& pass, const VelnorDrawableEllipse& item) {
    pass.surface.DrawOverlayEllipse(item.x, item.y, item.width, item.height, angleOf(item.rotation),
                                    item.thickness, item.style, shapesAreAntialiased(pass));
}

void draw(const Pass& pass, const VelnorDrawableLine& item) {
    pass.surface.DrawOverlayLine(item.x, item.y, item.width, item.height, angleOf(item.rotation),
                                 item.thickness, item.style, item.length,
                                 shapesAreAntialiased(pass));
}

} // namespace

void velnor::drawItem(const Pass& pass, VelnorDrawableElement& item) {
    if (pass.surface.canBeDrawnOn()) {
        visitItem(item, [&pass](auto& record) { draw(pass, record); });
    }
}
