// What zint must not be asked to draw.
#ifndef VELNOR_RENDER_DRAWABLE_SYMBOL_H
#define VELNOR_RENDER_DRAWABLE_SYMBOL_H

struct zint_symbol;

namespace velnor {

// The length of a module's side in the symbol's picture.
double dotsPerModule(const zint_symbol& symbol);

// The dots of the symbol's picture, up to quiet zones and text: known before zint allocates it.
double pictureDots(const zint_symbol& symbol);

// Whether the encoded symbol can be drawn within the library's limits, and by zint without writing
// outside its picture.
bool isDrawable(const zint_symbol& symbol);

} // namespace velnor

#endif
