// Open files by their numbers.
#ifndef VELNOR_FILES_DESCRIPTORS_H
#define VELNOR_FILES_DESCRIPTORS_H

#include <sys/types.h>

namespace velnor {

// The same open file under a number above 2. A host without standard streams writes to those
// numbers all the same, and its words would end up in a picture. -1 stays -1.
int awayFromStandardStreams(int descriptor);

// Whether the process can have so many descriptors more.
bool descriptorsAreFree(int count);

// As open(2), under a number above 2, for a file that is read from its start or written from empty:
// what the host wrote to it in the meantime is gone.
int openAwayFromStandardStreams(const char* path, int flags, mode_t permissions = 0);

} // namespace velnor

#endif
