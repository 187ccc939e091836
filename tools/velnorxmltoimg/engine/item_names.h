// How messages and lists name an item.
#ifndef VELNOR_TOOL_ITEM_NAMES_H
#define VELNOR_TOOL_ITEM_NAMES_H

#include <string>

class VelnorDrawableElement;

namespace tool {

// The class that makes such an item: "text", "barcode" and so on.
std::string className(const VelnorDrawableElement& item);

// Its id, or its class where it has none.
std::string nameOf(const VelnorDrawableElement& item);

} // namespace tool

#endif
