// The program golden: pictures as the C interface writes them.
#include "rendering.h"

namespace golden {

QString finish(const QString& picture) {
    return picture;
}

bool isMine(const GoldenCase& golden) {
    return !golden.picture.endsWith(QLatin1String(".bmp"));
}

} // namespace golden
