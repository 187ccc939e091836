// Finding the canvas in the tree of a layout document.
#ifndef VELNOR_DOCUMENT_CANVAS_ELEMENT_H
#define VELNOR_DOCUMENT_CANVAS_ELEMENT_H

#include <QDomElement>

class QDomDocument;

namespace velnor {

// The first item list anywhere below the root. Null for a document with another root or without
// an item list.
QDomElement firstItemList(const QDomDocument& document);

// An item list is read only when it is a canvas.
bool isCanvas(const QDomElement& itemList);

} // namespace velnor

#endif
