// Plans worked out by the library, for programs that paint without it.
#ifndef VELNOR_BENCHMARKS_PLAN_WRITING_H
#define VELNOR_BENCHMARKS_PLAN_WRITING_H

#include "plan.h"

class VelnorXml;

namespace bench {

// The steps that paint the handler's document as it is rendered now. `finished` is that picture.
// Throws std::runtime_error for a document that makes none.
Plan makePlan(VelnorXml& handler, const QImage& finished);

} // namespace bench

#endif
