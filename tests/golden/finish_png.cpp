// The program golden: pictures as the C interface writes them.
#include "rendering.h"

namespace golden {

QString finish(const QString& png) {
    return png;
}

bool isMine(const GoldenCase& golden) {
    return golden.picture.endsWith(QLatin1String(".png"));
}

} // namespace golden
