// What makes a small picture file take a decoder minutes or the host's memory, found beforehand.
#ifndef VELNOR_RENDER_PICTURE_SCAN_H
#define VELNOR_RENDER_PICTURE_SCAN_H

#include <QByteArray>

class QIODevice;

namespace velnor {

// Whether the file, in the format that Qt found, is safe to decode once its dimensions are. Reads it
// from its start and returns there.
bool isSafeToDecode(QIODevice& file, const QByteArray& format);

} // namespace velnor

#endif
