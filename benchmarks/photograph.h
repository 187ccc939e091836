// A large picture of soft shades, the same on every machine.
#ifndef VELNOR_BENCHMARKS_PHOTOGRAPH_H
#define VELNOR_BENCHMARKS_PHOTOGRAPH_H

#include <QImage>

namespace bench {

QImage makePhotograph(int width, int height);

} // namespace bench

#endif
