// Layout documents for tests: their text, a document on disk with its handler, a parsed canvas.
#ifndef VELNOR_TESTS_LAYOUTS_H
#define VELNOR_TESTS_LAYOUTS_H

#include "document/elements.h"
#include "handler/velnorxml.h"
#include "support/scratch_folder.h"

#include <QByteArray>

#include <memory>
#include <stdexcept>

// The text of an element that holds `content`.
QByteArray element(const QByteArray& name, const QByteArray& content);
// The text of an item of class `kind` whose id is `id`.
QByteArray itemElement(const QByteArray& kind, const QByteArray& fields = {},
                       const QByteArray& id = "i");
// The text of a whole document whose canvas has the id "page" and holds `children`.
QByteArray canvasDocument(const QByteArray& children);
// `depth` elements called `name`, one inside the other; the innermost holds `content`.
QByteArray nested(const QByteArray& name, int depth, const QByteArray& content = {});

// A document on disk and the handler that was made for it.
class Layout {
public:
    explicit Layout(const QByteArray& document);

    VelnorXml& handler() { return *xml; }
    const ScratchFolder& folder() const { return scratch; }
    // Writes another document to the same path.
    void rewrite(const QByteArray& document) const;
    void remove() const;

    // What Parse answers; the canvas it made, if any, is destroyed.
    int parseResult();
    // Null when Parse made no canvas.
    std::unique_ptr<VelnorDrawableCanvas> parse();

private:
    ScratchFolder scratch;
    std::unique_ptr<VelnorXml> xml;
};

// The canvas of a document whose canvas element holds `children`; throws when there is none.
std::unique_ptr<VelnorDrawableCanvas> parsedCanvas(const QByteArray& children);

// The only item of a canvas, as the record of its kind.
template <typename Record>
const Record& onlyItem(const VelnorDrawableCanvas& canvas) {
    if (!canvas.items || canvas.items->size() != 1 ||
        canvas.items->front()->type != Record().type) {
        throw std::runtime_error("the canvas does not hold exactly one item of this kind");
    }
    return static_cast<const Record&>(*canvas.items->front());
}

#endif
