// Canvases as a parse leaves them: a list of items and at least one row and one column.
#ifndef VELNOR_TESTS_CANVASES_H
#define VELNOR_TESTS_CANVASES_H

#include "document/elements.h"

#include <initializer_list>
#include <memory>

using CanvasPointer = std::unique_ptr<VelnorDrawableCanvas>;

// One absolute row and one absolute column of the canvas's size, no items.
CanvasPointer makeCanvas(int width, int height, int dpi = velnor::DefaultDpi);

struct Length {
    int type;
    int size;
};

void setRows(VelnorDrawableCanvas& canvas, std::initializer_list<Length> rows);
void setColumns(VelnorDrawableCanvas& canvas, std::initializer_list<Length> columns);

// Appends an item of the record's kind, which the canvas owns.
template <typename Record>
Record& addItem(VelnorDrawableCanvas& canvas) {
    auto* item = new Record;
    canvas.items->emplace_back(item);
    return *item;
}

// The same, with a size, at the cell's top left corner.
template <typename Record>
Record& addItem(VelnorDrawableCanvas& canvas, int x, int y, int width, int height) {
    Record& item = addItem<Record>(canvas);
    item.x = x;
    item.y = y;
    item.width = width;
    item.height = height;
    return item;
}

#endif
