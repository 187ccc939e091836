// Asks for memory before it is needed. Qt and the libraries below it do not survive its lack
// everywhere: some end the process, some leave a lock behind, some draw nothing.
#ifndef VELNOR_SPARE_MEMORY_H
#define VELNOR_SPARE_MEMORY_H

#include <QtGlobal>

namespace velnor {

// What a call takes beside pictures: documents, fonts, the tables of codecs.
constexpr qint64 SpareMemory = 16LL * 1024 * 1024;

// Throws std::bad_alloc where the process could not have so many bytes and the spare ones more.
void requireMemory(qint64 bytes);

// The same for a picture of so many dots of 32 bits.
void requireMemoryForDots(qint64 dots);

} // namespace velnor

#endif
