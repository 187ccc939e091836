#include "support/canvases.h"

namespace {

void setLengths(std::unique_ptr<VelnorRowColumn[]>& entries, int& count,
                std::initializer_list<Length> lengths) {
    count = static_cast<int>(lengths.size());
    entries = std::make_unique<VelnorRowColumn[]>(lengths.size());
    VelnorRowColumn* entry = entries.get();
    for (const Length& length : lengths) {
        entry->type = length.type;
        entry->size = length.size;
        ++entry;
    }
}

} // namespace

CanvasPointer makeCanvas(int width, int height, int dpi) {
    auto canvas = std::make_unique<VelnorDrawableCanvas>();
    canvas->width = width;
    canvas->height = height;
    canvas->dpi = dpi;
    canvas->items = std::make_unique<velnor::ElementList>();
    setRows(*canvas, {{velnor::AbsoluteLength, height}});
    setColumns(*canvas, {{velnor::AbsoluteLength, width}});
    return canvas;
}

void setRows(VelnorDrawableCanvas& canvas, std::initializer_list<Length> rows) {
    setLengths(canvas.rows, canvas.rowCount, rows);
}

void setColumns(VelnorDrawableCanvas& canvas, std::initializer_list<Length> columns) {
    setLengths(canvas.columns, canvas.columnCount, columns);
}
