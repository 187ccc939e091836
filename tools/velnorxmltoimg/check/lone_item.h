// The ink of an item by itself.
#ifndef VELNOR_TOOL_LONE_ITEM_H
#define VELNOR_TOOL_LONE_ITEM_H

#include "document/elements.h"

#include <QRect>
#include <QRectF>
#include <QRgb>

#include <optional>

namespace tool {

// A rectangle of drawing in whole dots. What lies beyond all pictures comes nearer: sums of two such
// lengths have room in 32 bits.
QRect wholeDots(const QRectF& rectangle);

// What an item covers, with the outline that lies outside its box; in whole dots of the canvas.
QRect reachOf(const VelnorDrawableElement& drawn);

// The dots that the item has where nothing cuts it off, in those of the canvas: an empty rectangle
// where it has none. Nothing where it is too large to be drawn for this.
std::optional<QRect> inkOf(const VelnorDrawableElement& drawn, const VelnorDrawableCanvas& canvas);

// A dot that a printer may print.
bool isInk(QRgb dot);

} // namespace tool

#endif
