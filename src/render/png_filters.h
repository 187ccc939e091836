// The choice of a filter for each row of a PNG file.
#ifndef VELNOR_RENDER_PNG_FILTERS_H
#define VELNOR_RENDER_PNG_FILTERS_H

namespace velnor {

// As the format numbers them.
enum class PngFilter { None, Sub, Up, Average, Paeth };

// The filter that libpng chooses for a row of 32-bit dots below another one when it may take any,
// found faster: the one that leaves the smallest bytes, taken as signed; the first of equals. A
// picture of one column has no filters that look to the left.
PngFilter choosePngFilter(const unsigned char* row, const unsigned char* above, int dots);

} // namespace velnor

#endif
