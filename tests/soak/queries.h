// What a host asks the library between two pictures.
#ifndef VELNOR_TESTS_SOAK_QUERIES_H
#define VELNOR_TESTS_SOAK_QUERIES_H

#include "documents.h"
#include "random.h"

namespace soak {

// Asks one thing.
void ask(void* handler, const Document& document, Random& random);

} // namespace soak

#endif
