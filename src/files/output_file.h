// Files that the library writes.
#ifndef VELNOR_FILES_OUTPUT_FILE_H
#define VELNOR_FILES_OUTPUT_FILE_H

#include <QByteArray>
#include <QString>

namespace velnor {

// Writes the bytes to the file. Whoever reads it sees what was there before or all of the bytes:
// they go into a file that has no name until it is complete, and that then takes the name, owner,
// permissions and extended attributes of what it replaces. A file that is there already is replaced
// by way of a second name, with ".part" behind the first. Where that cannot be, the file is written
// in place: a device, a pipe, a file of several names, one whose owner or attributes cannot be kept,
// a folder that takes no new file, a file system that has no files without a name.
// False for no bytes and where writing fails; no part of a file is left then. No signal reaches the
// host for a pipe that nobody reads or a file that would grow beyond the host's limit.
bool writeOutputFile(const QString& path, const QByteArray& bytes);

} // namespace velnor

#endif
