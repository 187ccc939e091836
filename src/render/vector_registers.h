// The upper halves of the processor's vector registers.
#ifndef VELNOR_RENDER_VECTOR_REGISTERS_H
#define VELNOR_RENDER_VECTOR_REGISTERS_H

namespace velnor {

// Qt's painting leaves them in use on some processors, which slows code that knows nothing of them,
// such as zlib, until something clears them.
void clearUpperVectorRegisters();

} // namespace velnor

#endif
