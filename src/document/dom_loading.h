// The one way in which XML becomes a document tree.
#ifndef VELNOR_DOCUMENT_DOM_LOADING_H
#define VELNOR_DOCUMENT_DOM_LOADING_H

#include <QByteArray>
#include <QString>

class QDomDocument;

namespace velnor {

// Elements nested deeper than this do not load: the tree is built and destroyed recursively, and
// the stack is the host's.
constexpr int MaximumNesting = 256;

// Entities that a document may declare, and the characters that its references to one may expand
// to. Few declarations and references could otherwise fill the host's memory or take it seconds.
constexpr int MaximumEntities = 256;
constexpr int MaximumExpansion = 16 * 1024 * 1024;

// Fills the document from the text, without namespace processing. False when the text is not
// well-formed or lies beyond a limit.
bool loadXml(QDomDocument& document, const QString& text);

// The same for the bytes of a file, decoded as their XML prologue says.
bool loadXml(QDomDocument& document, const QByteArray& bytes);

} // namespace velnor

#endif
