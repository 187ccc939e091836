// Writing that tells of a failure by its result alone.
#ifndef VELNOR_FILES_QUIET_WRITING_H
#define VELNOR_FILES_QUIET_WRITING_H

#include <QByteArray>

namespace velnor {

// Writes all the bytes to the open file. A pipe that nobody reads and a file that would grow beyond
// the process's limit are failures; the signals for them, which end a host that does not expect
// them, do not reach it.
bool writeQuietly(int descriptor, const QByteArray& bytes);

} // namespace velnor

#endif
