// The fonts of the tests' own folder, for the whole process.
#ifndef VELNOR_TESTS_TEXT_FONTS_H
#define VELNOR_TESTS_TEXT_FONTS_H

#include <QString>

// Registers the font files, once; throws when one of them cannot be read.
void registerTextFonts();

// The family that the registered files have, in regular, bold and italic.
QString textFamily();

#endif
