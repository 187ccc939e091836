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
//
// Gives false for a text that must not be drawn: Qt would draw letters of it from pictures of
// themselves of any size. These are the letters of faces without outlines, such as those of emoji, also
// where the text's own font does not have them, and the boxes that stand for letters where there is no
// font at all.
bool prepareLargeLetters(const QFont& font, const QString& text);

} // namespace velnor

#endif
