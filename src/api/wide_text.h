// Between the UTF-16 of the wide functions and the UTF-8 of the operations.
#ifndef VELNOR_API_WIDE_TEXT_H
#define VELNOR_API_WIDE_TEXT_H

#include <QByteArray>

namespace velnor {

// A text of `length` code units, or up to the terminating zero for a negative length. A null text
// is empty, and its bytes are an empty string, not a null one.
QByteArray utf8FromWide(const unsigned short* text, int length);

// The narrow buffer behind a wide one of `size` code units, zeroed: two bytes for each unit.
QByteArray scratchFor(int size);

} // namespace velnor

#endif
