// The one way in which XML becomes a document tree.
#ifndef VELNOR_DOCUMENT_DOM_LOADING_H
#define VELNOR_DOCUMENT_DOM_LOADING_H

#include <QByteArray>
#include <QString>

class QDomDocument;

namespace velnor {

// Fills the document from the text, without namespace processing. False when the text is not
// well-formed or lies beyond a limit.
bool loadXml(QDomDocument& document, const QString& text);

// The same for the bytes of a file, decoded as their XML prologue says.
bool loadXml(QDomDocument& document, const QByteArray& bytes);

} // namespace velnor

#endif
