// Sizes that no real printout reaches. Beyond them there is no picture, rather than a host without
// memory.
#ifndef VELNOR_RENDER_LIMITS_H
#define VELNOR_RENDER_LIMITS_H

#include <QtGlobal>

namespace velnor {

// A surface: the canvas, the part of it that is kept, or that part with its margins.
constexpr qint64 MaximumSurfaceDots = 256LL * 1000 * 1000;

// A picture that an item shows, taken from the header of its file, or a barcode.
constexpr qint64 MaximumPictureDots = 64LL * 1000 * 1000;

// Rounds of shrinking a text. Every box of a size of 0 or more needs 123 at most.
constexpr int MaximumShrinkRounds = 1000;

} // namespace velnor

#endif
