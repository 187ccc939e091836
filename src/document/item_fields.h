// The elements that each kind of item understands, and what each sets.
#ifndef VELNOR_DOCUMENT_ITEM_FIELDS_H
#define VELNOR_DOCUMENT_ITEM_FIELDS_H

#include "document/elements.h"

class QDomElement;
class VelnorXml;

namespace velnor {

// A new record for a "class" of an item; null for a class that names none.
ElementPointer makeItem(const QString& className);

// Sets the field of the item that the child element names, common placement fields first. An
// element that the item's kind does not know is passed over.
void applyItemField(VelnorDrawableElement& item, const VelnorDrawableCanvas& canvas,
                    const QDomElement& child, const VelnorXml& handler);

} // namespace velnor

#endif
