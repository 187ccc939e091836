// Documents drawn by the library, and what is done with the pictures.
#ifndef VELNOR_TESTS_DRAWING_H
#define VELNOR_TESTS_DRAWING_H

#include "support/documents.h"

#include <QImage>

// The picture of a document, through a file. Throws when the library writes none.
QImage drawn(const Document& document);

// The document with one more item, and with its items replaced by one.
Document with(Document document, const Item& item);
Document withOnly(Document document, const Item& item);

// A picture pushed by some dots within its frame. White comes in, what is pushed out is lost.
QImage pushed(const QImage& picture, int dx, int dy);
// A picture with white paper around it.
QImage framed(const QImage& picture, const QMargins& margins);

#endif
