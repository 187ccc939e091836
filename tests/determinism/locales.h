// Locales that the machine may not have.
#ifndef VELNOR_TESTS_LOCALES_H
#define VELNOR_TESTS_LOCALES_H

#include <QString>

// Compiles the locale (such as "de_DE.UTF-8") into a folder that LOCPATH can name. Does nothing
// where the machine lacks the compiler or the locale's source.
void compileLocale(const QString& name, const QString& folder);

#endif
