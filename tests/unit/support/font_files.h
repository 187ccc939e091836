// Font files for tests, under family names that no machine has installed.
#ifndef VELNOR_TESTS_FONT_FILES_H
#define VELNOR_TESTS_FONT_FILES_H

#include <QByteArray>
#include <QString>

// The bytes of a working font whose family is "<brand> Sans"; `brand` has ten letters. The style is
// "Regular", "Bold" or "Italic".
QByteArray fontOfBrand(const QByteArray& brand, const QByteArray& style = "Regular");
// The same for a brand of any ten letters; the other names of the font stay as they are.
QByteArray fontOfWideBrand(const QString& brand);
QString familyOfBrand(const QByteArray& brand);

#endif
