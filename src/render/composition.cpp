// The two passes over a canvas: measure, lay out, draw, save.
#include "render/composition.h"

#include "document/dots.h"
#include "render/item_drawing.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr int NeverAntialias = 0;
constexpr int AlwaysAntialias = 1;
constexpr double MillimetresPerInch = 25.4;
constexpr qint64 MillimetresPerMetre = 1000;

int oneMetreOfRoll(int dpi) {
    return velnor::roundToDots(static_cast<double>(dpi * MillimetresPerMetre) / MillimetresPerInch);
}

bool hasVisibleBarcode(const VelnorDrawableCanvas& canvas) {
    return canvas.items &&
           std::any_of(canvas.items->begin(), canvas.items->end(), [](const auto& item) {
               return item->type == velnor::BarcodeKind && velnor::isVisible(*item);
           });
}

// Hosts expect that no file of this name is left, whoever made it.
void removeBarcodeFile(const VelnorDrawableCanvas& canvas, const char* output) {
    if (hasVisibleBarcode(canvas)) {
        QFile::remove(QString::fromUtf8(output) + QLatin1String(".BARCODE.PNG"));
    }
}

void measureItems(VelnorDrawableCanvas& canvas, const std::shared_ptr<velnor::Sheet>& sheet,
                  velnor::ItemPictures& pictures) {
    VelnorImage scratch(sheet, VelnorImage::Painting::TextsAlone);
    velnor::drawVisibleItems({scratch, canvas, pictures}, [&scratch](VelnorDrawableElement& item) {
        item.boundingBox = scratch.lastBoundingRect();
    });
}

} // namespace

velnor::Composition::Composition(VelnorDrawableCanvas& composedCanvas)
    : canvas(composedCanvas), grows(canvas.height == NotGiven) {
    if (grows) {
        canvas.height = oneMetreOfRoll(canvas.dpi);
    }
    sheet = std::make_shared<Sheet>(canvas.width, canvas.height,
                                    Margins{canvas.x, canvas.y, canvas.xr, canvas.yb});
}

void velnor::Composition::measure() {
    measureItems(canvas, sheet, pictures);
    places = std::make_unique<ItemPlaces>(canvas);
}

void velnor::Composition::layOut() {
    VelnorImage::CalculateRowLength(&canvas);
    VelnorImage::CalculateColumnLength(&canvas);
}

void velnor::Composition::draw() {
    int whiteRows = canvas.height;
    if (grows) {
        whiteRows = VelnorImage::addRollMargin(places->expectedEnd(), canvas.dpi);
    }
    int neededRows = whiteRows;
    do {
        whiteRows = neededRows;
        sheet->whiten(whiteRows);
        const int lowest = drawItems();
        if (grows) {
            neededRows = VelnorImage::addRollMargin(lowest, canvas.dpi);
        }
    } while (neededRows > whiteRows && whiteRows < canvas.height);
}

// Gives the lowest row that an item reaches.
int velnor::Composition::drawItems() {
    output = std::make_unique<VelnorImage>(sheet, VelnorImage::Painting::Everything);
    int lowest = 0;
    drawVisibleItems({*output, canvas, pictures}, [&](VelnorDrawableElement& item) {
        item.reachedY = output->getCurrentY();
        item.drawnBox = output->lastBoundingRect();
        lowest = std::max(lowest, item.reachedY);
    });
    output->setCurrentY(lowest);
    output->SetCropAtCurrentY(grows);
    return lowest;
}

QImage velnor::Composition::picture() const {
    return output->finishedPicture(canvas.dpi, canvas.x, canvas.y, canvas.xr, canvas.yb);
}

void velnor::Composition::save(const char* fileName) const {
    output->SaveImage(fileName, canvas.dpi, canvas.x, canvas.y, canvas.xr, canvas.yb);
}

bool VelnorImage::getAntialias(bool itemFlag, int canvasMode) {
    if (canvasMode == NeverAntialias) {
        return false;
    }
    return canvasMode == AlwaysAntialias || itemFlag;
}

int VelnorImage::CalculateBoundingBoxForItems(VelnorDrawableCanvas* canvas, const char* fileName) {
    removeBarcodeFile(*canvas, fileName);
    velnor::ItemPictures pictures;
    measureItems(*canvas,
                 std::make_shared<velnor::Sheet>(canvas->width, canvas->height, velnor::Margins()),
                 pictures);
    return 0;
}

int VelnorImage::CreateImageFromCanvas(VelnorDrawableCanvas* canvas, const char* fileName) {
    if (canvas == nullptr) {
        return -1;
    }
    removeBarcodeFile(*canvas, fileName);
    velnor::Composition composition(*canvas);
    composition.measure();
    composition.layOut();
    composition.draw();
    composition.save(fileName);
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
