// Letters that are too large for Qt's cache.
#ifndef VELNOR_RENDER_LARGE_LETTERS_H
#define VELNOR_RENDER_LARGE_LETTERS_H

#include <QFont>
#include <QString>

namespace velnor {

// Qt draws letters of 64 dots and more as paths, which it loads anew each time. A path is moved by
// what remains in the font's face of the last small letter that was loaded: a fraction of a dot, but
// another one when that letter came out of the cache. Takes the remainder away from each face that
// the text is drawn with, so that its dots do not depend on what the process drew before. Does
// nothing for small letters.
void prepareLargeLetters(const QFont& font, const QString& text);

// False for letters that Qt would draw from pictures of themselves of any size: those of a face without
// outlines, such as the boxes that stand for letters where there is no font at all.
bool areDrawable(const QFont& font);

} // namespace velnor

#endif
