// The records of a parsed layout: a canvas that owns its grid and its items. Records have no
// virtual functions; every consumer goes by `type`.
#ifndef VELNOR_DOCUMENT_ELEMENTS_H
#define VELNOR_DOCUMENT_ELEMENTS_H

#include "document/codes.h"

#include <QRectF>
#include <QString>

#include <memory>
#include <vector>

class VelnorDrawableElement {
public:
    VelnorDrawableElement() = default;

    int type = velnor::UnspecifiedKind;
    int x = 0; // offsets inside the grid cell, in dots; the canvas's margins
    int y = 0;
    int width = velnor::NotGiven;
    int height = velnor::NotGiven;
    int anchor = velnor::AnchorTop | velnor::AnchorLeft;
    int xr = 0;
    int yb = 0;
    QString id = QLatin1String("");
    int column = 0;
    int row = 0;
    int rowspan = 1;
    int columnspan = 1;
    int hidden = 0;     // exactly 1 hides the item
    int reachedY = -1;  // the renderer's lowest Y after it drew the item
    QRectF boundingBox; // what the measuring pass found the drawing to cover
    QRectF drawnBox;    // what drawing it at its place covered
};

class VelnorDrawableImage : public VelnorDrawableElement {
public:
    VelnorDrawableImage() { type = velnor::ImageKind; }
    void PrintInfo() const {}

    QString filepath = QLatin1String("");
    int rotation = velnor::NotGiven;
    int scalex = 100; // per cent
    int scaley = 100;
    int aspect = 0;
};

class VelnorDrawableText : public VelnorDrawableElement {
public:
    VelnorDrawableText() { type = velnor::TextKind; }
    void PrintInfo() const {}

    QString text = QLatin1String("");
    int rotation = velnor::NotGiven;
    int flags = 0;
    QString fontname = QLatin1String("");
    int fontsize = 0; // points on paper
    bool bold = false;
    bool italic = false;
    bool antialias = false;
    double drawnFontSize = 0; // points on paper, after shrinking
};

class VelnorDrawableBarcode : public VelnorDrawableElement {
public:
    VelnorDrawableBarcode() { type = velnor::BarcodeKind; }
    void PrintInfo() const {}

    QString text = QLatin1String("");
    int barcodeType = velnor::NotGiven;
    int rotation = velnor::NotGiven;
    int hrt = 0;
    int inputmode = 1;
    QString primary = QLatin1String("");
    int option1 = velnor::BarcodeOptionNotGiven;
    int option2 = velnor::BarcodeOptionNotGiven;
    int option3 = velnor::BarcodeOptionNotGiven;
};

class VelnorDrawableRectangle : public VelnorDrawableElement {
public:
    VelnorDrawableRectangle() { type = velnor::RectangleKind; }
    void PrintInfo() const {}

    int rotation = velnor::NotGiven;
    int thickness = 0;
    int style = 0;
    int radius = 0;
};

class VelnorDrawableEllipse : public VelnorDrawableElement {
public:
    VelnorDrawableEllipse() { type = velnor::EllipseKind; }
    void PrintInfo() const {}

    int rotation = velnor::NotGiven;
    int thickness = 0;
    int style = 0;
};

class VelnorDrawableLine : public VelnorDrawableElement {
public:
    VelnorDrawableLine() { type = velnor::LineKind; }
    void PrintInfo() const {}

    int rotation = velnor::NotGiven;
    int thickness = 0;
    int style = 0;
    int length = velnor::NotGiven;
};

// One row or column of the grid. `size` holds dots, or a weight for a proportional entry, until
// the grid computation replaces it by dots.
class VelnorRowColumn {
public:
    int type = velnor::AbsoluteLength;
    int size = 0;
    int offset = 0;
};

namespace velnor {

inline bool isVisible(const VelnorDrawableElement& item) {
    constexpr int Hidden = 1;
    return item.hidden != Hidden;
}

// Calls `visit` with the item as the record of its kind. False for a kind that no item has.
template <typename Visitor>
bool visitItem(VelnorDrawableElement& item, Visitor visit) {
    switch (item.type) {
    case ImageKind:
        visit(static_cast<VelnorDrawableImage&>(item));
        return true;
    case TextKind:
        visit(static_cast<VelnorDrawableText&>(item));
        return true;
    case BarcodeKind:
        visit(static_cast<VelnorDrawableBarcode&>(item));
        return true;
    case RectangleKind:
        visit(static_cast<VelnorDrawableRectangle&>(item));
        return true;
    case EllipseKind:
        visit(static_cast<VelnorDrawableEllipse&>(item));
        return true;
    case LineKind:
        visit(static_cast<VelnorDrawableLine&>(item));
        return true;
    default:
        return false;
    }
}

// Destroys an item as the record that its `type` names.
struct ElementDeleter {
    void operator()(VelnorDrawableElement* element) const;
};

using ElementPointer = std::unique_ptr<VelnorDrawableElement, ElementDeleter>;
using ElementList = std::vector<ElementPointer>;

} // namespace velnor

class VelnorDrawableCanvas : public VelnorDrawableElement {
public:
    VelnorDrawableCanvas() { type = velnor::CanvasKind; }
    void PrintInfo() const;

    std::unique_ptr<velnor::ElementList> items; // null until a parse reaches its end
    int dpi = velnor::DefaultDpi;
    int antialiasText = 2;
    int antialiasShape = 0;
    std::unique_ptr<VelnorRowColumn[]> rows;
    int rowCount = 0;
    std::unique_ptr<VelnorRowColumn[]> columns;
    int columnCount = 0;
};

#endif
