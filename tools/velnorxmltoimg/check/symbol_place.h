// Where the symbol of a barcode lies on the canvas, turned as it is.
#ifndef VELNOR_TOOL_SYMBOL_PLACE_H
#define VELNOR_TOOL_SYMBOL_PLACE_H

#include "check/checked_document.h"

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tool {

// How often it is turned by 90 degrees clockwise. Angles between are rounded.
int quarterTurns(const VelnorDrawableBarcode& drawn);

// Whether it is visible, was made of its real data, and its modules are upright squares.
bool isEvenSymbol(const CheckedItem& item);

// A rectangle of the upright symbol's picture, in dots of the canvas.
QRect onCanvas(const QRect& upright, const VelnorDrawableBarcode& drawn);

// Where the canvas begins in the picture: behind its margins.
QPoint canvasInPicture(const CheckedDocument& document);

// Of a canvas that grows, the metre that is drawn.
QSize canvasSize(const CheckedDocument& document);

// The item, but for this one, whose ink the dot probably is, for messages.
QString nameOfItemAt(const CheckedDocument& document, const QPoint& dot, const CheckedItem& except);

} // namespace tool

#endif
