// Black and white alone, as a thermal head prints.
#ifndef VELNOR_TOOL_MONO_PICTURE_H
#define VELNOR_TOOL_MONO_PICTURE_H

#include "output/picture_output.h"

#include <QImage>

namespace tool {

// One bit a dot, black on white; what is transparent becomes paper. The resolution stays.
QImage monoPicture(const QImage& picture, Mono mono);

} // namespace tool

#endif
