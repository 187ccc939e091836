// A layout as the library itself reads it: what the C interface cannot tell.
#ifndef VELNOR_TOOL_DOCUMENT_VIEW_H
#define VELNOR_TOOL_DOCUMENT_VIEW_H

#include "document/elements.h"
#include "handler/velnorxml.h"

#include <QDomDocument>
#include <QString>

#include <memory>
#include <optional>
#include <string>

namespace tool {

struct DocumentSource;

// Where and why a document is no XML. Lines and columns are those of the file, unless a placeholder's
// value has line feeds.
struct XmlError {
    int line;
    int column;
    QString reason;
};

class DocumentView {
public:
    // With its values. Its fonts stay registered where xmlToImgSetEmbeddedFontKeepFlag
    // was set; otherwise the end of this view unregisters them.
    explicit DocumentView(const DocumentSource& source);

    // The document's text with its placeholders replaced.
    const QString& text() const { return substituted; }

    std::optional<XmlError> xmlError() const;

    // Why the library draws nothing; nothing where it draws.
    std::optional<std::string> fault() const;

    // The tree with the values of objects set; null where the document is no XML.
    QDomDocument tree() const;

    // What the document says, ready to be drawn; null where it has a fault.
    std::unique_ptr<VelnorDrawableCanvas> canvas() const;

    // Read anew for each use: some of its members are not const.
    VelnorXml& handler() const { return *xml; }

private:
    std::unique_ptr<VelnorXml> xml;
    QString substituted;
};

// Fails with UnreadableDocument, and the reason, where the library would draw nothing.
void requireDocument(const DocumentSource& source);

} // namespace tool

#endif
