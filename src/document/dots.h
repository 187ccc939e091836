// Arithmetic on dots: doubles and sums become whole dots here. Values outside 32 bits saturate;
// what is not a number becomes 0.
#ifndef VELNOR_DOCUMENT_DOTS_H
#define VELNOR_DOCUMENT_DOTS_H

#include <QtGlobal>

namespace velnor {

int saturate(qint64 value);
int roundToDots(double value);    // halves upward
int truncateToDots(double value); // toward zero

} // namespace velnor

#endif
