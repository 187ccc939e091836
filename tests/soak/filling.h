// What a host puts into a handler.
#ifndef VELNOR_TESTS_SOAK_FILLING_H
#define VELNOR_TESTS_SOAK_FILLING_H

#include "documents.h"
#include "random.h"

#include <string>

namespace soak {

// The document's own values, by the narrow functions or by the wide ones. Throws
// std::runtime_error where one is refused that the document has.
void applyValues(void* handler, const Document& document, bool wide);

// Gives the object another text, in another size.
void setRandomText(void* handler, const std::string& object, Random& random);

} // namespace soak

#endif
