// From a case to the picture that the library makes of it now.
#ifndef VELNOR_GOLDEN_RENDERING_H
#define VELNOR_GOLDEN_RENDERING_H

#include "golden_case.h"

#include <QString>

namespace golden {

// Renders into a file in `folder` and returns its path. Throws std::runtime_error where that fails.
QString render(const GoldenCase& golden, const QString& folder);

// Turns the PNG that the library rendered into the kind of picture that this program is for, and
// returns its path. finish_png.cpp and finish_bmp.cpp define it.
QString finish(const QString& png);

// Tells whether this program renders the case.
bool isMine(const GoldenCase& golden);

} // namespace golden

#endif
