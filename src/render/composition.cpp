// The two passes over a canvas: measure, lay out, draw, save.
#include "document/dots.h"
#include "document/elements.h"
#include "render/gui_application.h"
#include "render/text_places.h"
#include "render/velnorbarcode.h"
#include "render/velnorimage.h"

#include <QFile>
#include <QFont>

#include <algorithm>

namespace {

constexpr int NeverAntialias = 0;
constexpr int AlwaysAntialias = 1;
constexpr double MillimetresPerInch = 25.4;
constexpr qint64 MillimetresPerMetre = 1000;

// An item without a rotation is drawn upright; the drawing operations take -1 as an angle.
int angleOf(int rotation) {
    return rotation == velnor::NotGiven ? 0 : rotation;
}

// What drawing an item needs besides the item.
struct Pass {
    VelnorImage& surface;
    const VelnorDrawableCanvas& canvas;
    QString barcodeFile;
};

void draw(const Pass& pass, const VelnorDrawableImage& item) {
    pass.surface.DrawOverlayImage(item.filepath, item.x, item.y, item.scalex, item.scaley,
                                  item.width, item.height, angleOf(item.rotation), item.aspect);
}

void draw(const Pass& pass, const VelnorDrawableText& item) {
    pass.surface.SetFont(item.fontname, item.fontsize, pass.canvas.dpi, item.bold, item.italic,
                         VelnorImage::getAntialias(item.antialias, pass.canvas.antialiasText));
    pass.surface.DrawOverlayRectBoundedText(item.text, item.x, item.y, item.width, item.height,
                                            item.flags, angleOf(item.rotation));
}

void draw(const Pass& pass, const VelnorDrawableBarcode& item) {
    QFile::remove(pass.barcodeFile);
    VelnorBarcode().CreateBarcode(item.barcodeType, item.hrt, item.text.toUtf8().constData(),
                                  item.inputmode, item.primary.toUtf8().constData(), item.option1,
                                  item.option2, item.option3, pass.barcodeFile.toUtf8().constData(),
                                  item.width, item.height);
    pass.surface.DrawOverlayImage(pass.barcodeFile, item.x, item.y, 100, 100, -1, -1,
                                  angleOf(item.rotation), 0);
    QFile::remove(pass.barcodeFile);
}

bool shapesAreAntialiased(const Pass& pass) {
    return VelnorImage::getAntialias(false, pass.canvas.antialiasShape);
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

// Draws every visible item in document order and calls `drawn` with it.
template <typename Drawn>
void drawVisibleItems(const Pass& pass, Drawn drawn) {
    if (!pass.canvas.items) {
        return;
    }
    for (const auto& item : *pass.canvas.items) {
        if (velnor::isVisible(*item)) {
            velnor::visitItem(*item, [&pass](const auto& record) { draw(pass, record); });
            drawn(*item);
        }
    }
}

QString barcodeFileBeside(const char* fileName) {
    return QString::fromUtf8(fileName) + QLatin1String(".BARCODE.PNG");
}

int oneMetreOfRoll(int dpi) {
    return velnor::roundToDots(static_cast<double>(dpi * MillimetresPerMetre) / MillimetresPerInch);
}

} // namespace

bool VelnorImage::getAntialias(bool itemFlag, int canvasMode) {
    if (canvasMode == NeverAntialias) {
        return false;
    }
    return canvasMode == AlwaysAntialias || itemFlag;
}

int VelnorImage::CalculateBoundingBoxForItems(VelnorDrawableCanvas* canvas, const char* fileName) {
    VelnorImage scratch(canvas->width, canvas->height);
    drawVisibleItems(
        Pass{scratch, *canvas, barcodeFileBeside(fileName)},
        [&scratch](VelnorDrawableElement& item) { item.boundingBox = scratch.lastBoundingRect(); });
    return 0;
}

int VelnorImage::CreateImageFromCanvas(VelnorDrawableCanvas* canvas, const char* fileName) {
    if (canvas == nullptr) {
        return -1;
    }
    const bool grows = canvas->height == velnor::NotGiven;
    if (grows) {
        canvas->height = oneMetreOfRoll(canvas->dpi);
    }
    CalculateBoundingBoxForItems(canvas, fileName);
    const velnor::TextPlaces texts(*canvas);
    CalculateRowLength(canvas);
    CalculateColumnLength(canvas);
    if (!texts.areInsideInBothPasses() && velnor::guiApplicationExists()) {
        QFont::cleanup(); // the drawing pass loads every letter anew
    }

    VelnorImage output(canvas->width, canvas->height);
    int lowest = 0;
    drawVisibleItems(Pass{output, *canvas, barcodeFileBeside(fileName)},
                     [&](VelnorDrawableElement& item) {
                         item.reachedY = output.getCurrentY();
                         lowest = std::max(lowest, item.reachedY);
                     });
    output.setCurrentY(lowest);
    output.SetCropAtCurrentY(grows);
    output.SaveImage(fileName, canvas->dpi, canvas->x, canvas->y, canvas->xr, canvas->yb);
    return 0;
}

VelnorDrawableElement* VelnorImage::GetElemFromId(const VelnorDrawableCanvas* canvas,
                                                  const QString& id) {
    if (id.isEmpty() || !canvas->items) {
        return nullptr;
    }
    const auto found = std::find_if(canvas->items->begin(), canvas->items->end(),
                                    [&id](const auto& item) { return item->id == id; });
    return found == canvas->items->end() ? nullptr : found->get();
}
