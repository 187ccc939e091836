// Values that a document carries as text.
#ifndef VELNOR_DOCUMENT_DOM_VALUES_H
#define VELNOR_DOCUMENT_DOM_VALUES_H

#include <QString>

namespace velnor {

// The text as a base-10 integer, or the fallback when it does not convert.
int integerOr(const QString& text, int fallback);

// As integerOr; a number outside lowest to highest gives the fallback too.
int integerInRangeOr(const QString& text, int lowest, int highest, int fallback);

// True for a non-zero integer, false for zero, the fallback when the text does not convert.
bool flagOr(const QString& text, bool fallback);

} // namespace velnor

#endif
