// The memory of one picture: a surface to draw on and, around it, the room for the margins of its
// file, so that nothing is copied between drawing and encoding.
#ifndef VELNOR_RENDER_SHEET_H
#define VELNOR_RENDER_SHEET_H

#include <QImage>

#include <memory>

namespace velnor {

struct Margins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class Sheet {
public:
    // Without a surface where the size is none that a surface can have. Throws std::bad_alloc.
    Sheet(int width, int height, const Margins& margins);

    // What is drawn on, in premultiplied ARGB: transparent, or what was drawn before, until it is
    // made white. Memory is taken from the system row by row, when dots are first written.
    QImage surface() const;

    // Makes the first rows of the surface white, and the margins above and beside them.
    void whiten(int rows);

    // Whether the margins have room here, and the surface so many rows.
    bool canFrame(const Margins& margins, int rows) const;

    // The first rows of the surface, which were made white before they were drawn on, in their
    // margins. The dots are those of this sheet, not a copy.
    QImage framed(int rows) const;

private:
    class Memory;

    QImage view(int firstColumn, int firstRow, int columns, int rows) const;
    void fillRowsWhite(qint64 first, qint64 count) const;
    int framedWidth() const { return margins.left + width + margins.right; }

    int width = 0;
    int height = 0;
    Margins margins;
    std::shared_ptr<Memory> memory;
};

} // namespace velnor

#endif
