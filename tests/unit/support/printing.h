// Lets a failed comparison show Qt texts as text.
#ifndef VELNOR_TESTS_PRINTING_H
#define VELNOR_TESTS_PRINTING_H

#include <QByteArray>
#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << (text.isNull() ? "(null) " : "") << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.toStdString() << '"';
}

#endif
