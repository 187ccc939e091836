// Between the passes: rows and columns get their lengths, and items move into their cells.
#include "document/dots.h"
#include "document/elements.h"
#include "render/velnorimage.h"

#include <vector>

using velnor::roundToDots;
using velnor::saturate;
using velnor::truncateToDots;

namespace {

// One direction of the grid, as rows and columns are laid out by the same rules.
struct Axis {
    VelnorRowColumn* entries;
    int count;
    int canvasLength;
};

Axis rowsOf(const VelnorDrawableCanvas& canvas) {
    return {canvas.rows.get(), canvas.rowCount, canvas.height};
}

Axis columnsOf(const VelnorDrawableCanvas& canvas) {
    return {canvas.columns.get(), canvas.columnCount, canvas.width};
}

// An item's place on one axis. The drawn rectangle is what the measuring pass recorded.
struct Placement {
    int index;
    int span;
    int offset;    // from the near edge of the cell: top or left
    int farOffset; // from its far edge: bottom or right
    double drawnStart;
    double drawnLength;
    bool far;
    bool centred;
};

Placement verticalPlacement(const VelnorDrawableElement& item) {
    const int anchor = item.anchor & velnor::AnchorVerticalCentre;
    return {item.row,
            item.rowspan,
            item.y,
            item.yb,
            item.boundingBox.y(),
            item.boundingBox.height(),
            anchor == velnor::AnchorBottom,
            anchor == velnor::AnchorVerticalCentre};
}

Placement horizontalPlacement(const VelnorDrawableElement& item) {
    const int anchor = item.anchor & velnor::AnchorHorizontalCentre;
    return {item.column,
            item.columnspan,
            item.x,
            item.xr,
            item.boundingBox.x(),
            item.boundingBox.width(),
            anchor == velnor::AnchorRight,
            anchor == velnor::AnchorHorizontalCentre};
}

double rowExtent(const Placement& place) {
    if (place.centred) {
        return place.offset + place.drawnLength + place.farOffset;
    }
    return place.drawnLength + (place.far ? place.farOffset : place.offset);
}

// Unlike rows, columns never grow by the distance from the far edge.
double columnExtent(const Placement& place) {
    return place.offset + place.drawnLength;
}

// Automatic entries become as long as the items that lie in them alone.
template <typename PlacementOf, typename Extent>
void sizeAutomatic(const Axis& axis, const velnor::ElementList& items, PlacementOf placementOf,
                   Extent extent) {
    std::vector<double> longest(static_cast<size_t>(axis.count), 0.0);
    for (const auto& item : items) {
        const Placement place = placementOf(*item);
        if (place.span == 1 && place.index >= 0 && place.index < axis.count) {
            double& length = longest[static_cast<size_t>(place.index)];
            length = qMax(length, extent(place));
        }
    }
    for (int i = 0; i < axis.count; ++i) {
        if (axis.entries[i].type == velnor::AutoLength) {
            axis.entries[i].size = roundToDots(longest[static_cast<size_t>(i)]);
        }
    }
}

// Each share is rounded by itself, so their sum may miss the rest by a dot or so.
void shareRest(const Axis& axis) {
    qint64 fixed = 0;
    qint64 weights = 0;
    for (int i = 0; i < axis.count; ++i) {
        (axis.entries[i].type == velnor::ProportionalLength ? weights : fixed) +=
            axis.entries[i].size;
    }
    if (weights <= 0) {
        return;
    }
    const double rest = static_cast<double>(axis.canvasLength) - static_cast<double>(fixed);
    for (int i = 0; i < axis.count; ++i) {
        VelnorRowColumn& entry = axis.entries[i];
        if (entry.type == velnor::ProportionalLength) {
            entry.size = rest > 0 ? roundToDots(static_cast<double>(entry.size) /
                                                static_cast<double>(weights) * rest)
                                  : 0;
        }
    }
}

void setOffsets(const Axis& axis) {
    qint64 offset = 0;
    for (int i = 0; i < axis.count; ++i) {
        axis.entries[i].offset = saturate(offset);
        offset += axis.entries[i].size;
    }
}

void fixLengths(const Axis& axis) {
    shareRest(axis);
    setOffsets(axis);
}

// An index past the end starts at the grid's end, a negative one at its start.
qint64 startOf(const Axis& axis, int index) {
    if (index < 0 || axis.count == 0) {
        return 0;
    }
    if (index < axis.count) {
        return axis.entries[index].offset;
    }
    const VelnorRowColumn& last = axis.entries[axis.count - 1];
    return static_cast<qint64>(last.offset) + last.size;
}

// The sum of the lengths that a span covers. What lies outside the grid has no length.
qint64 spanLength(const Axis& axis, const Placement& place) {
    const qint64 end = qMin<qint64>(axis.count, static_cast<qint64>(place.index) + place.span);
    if (place.span < 1 || end <= qMax(place.index, 0)) {
        return 0;
    }
    return startOf(axis, static_cast<int>(end)) - startOf(axis, place.index);
}

// The position at which the item must be drawn so that its drawn rectangle lands where its anchor
// says.
int canvasPosition(const Axis& axis, const Placement& place) {
    const qint64 shift = static_cast<qint64>(place.offset) - roundToDots(place.drawnStart);
    const auto span = static_cast<double>(spanLength(axis, place));
    qint64 inCell = place.offset;
    if (place.centred) {
        inCell = truncateToDots(place.offset +
                                0.5 * (span - place.offset - place.farOffset - place.drawnLength));
    } else if (place.far) {
        inCell = truncateToDots(span - place.drawnLength - place.farOffset);
    }
    return saturate(startOf(axis, place.index) + inCell + shift);
}

const velnor::ElementList& itemsOf(const VelnorDrawableCanvas& canvas) {
    static const velnor::ElementList none;
    return canvas.items ? *canvas.items : none;
}

} // namespace

int VelnorImage::CalculateRowLength(VelnorDrawableCanvas* canvas) {
    const Axis rows = rowsOf(*canvas);
    sizeAutomatic(rows, itemsOf(*canvas), verticalPlacement, rowExtent);
    FixCanvasRow(canvas);
    for (const auto& item : itemsOf(*canvas)) {
        item->y = canvasPosition(rows, verticalPlacement(*item));
    }
    return 0;
}

int VelnorImage::CalculateColumnLength(VelnorDrawableCanvas* canvas) {
    const Axis columns = columnsOf(*canvas);
    sizeAutomatic(columns, itemsOf(*canvas), horizontalPlacement, columnExtent);
    FixCanvasColumn(canvas);
    for (const auto& item : itemsOf(*canvas)) {
        item->x = canvasPosition(columns, horizontalPlacement(*item));
    }
    return 0;
}

int VelnorImage::FixCanvasRow(VelnorDrawableCanvas* canvas) {
    fixLengths(rowsOf(*canvas));
    return 0;
}

int VelnorImage::FixCanvasColumn(VelnorDrawableCanvas* canvas) {
    fixLengths(columnsOf(*canvas));
    return 0;
}

int VelnorImage::getYFromAnchor(int anchor, int top, int y, int fallback) {
    return (anchor & velnor::AnchorTop) != 0 ? saturate(static_cast<qint64>(top) + y) : fallback;
}

int VelnorImage::getXfromAnchor(int anchor, int left, int right, int x, int xr, int* width,
                                int fallback) {
    const auto inside = [&](qint64 position) {
        return position >= left && position < right ? static_cast<int>(position) : fallback;
    };
    const qint64 room = static_cast<qint64>(right) - left;
    const qint64 start = static_cast<qint64>(left) + x;
    switch (anchor & velnor::AnchorHorizontalCentre) {
    case velnor::AnchorHorizontalCentre: {
        if (*width >= 1) {
            return inside(left + (room - *width) / 2);
        }
        const qint64 rest = room - x - xr;
        if (rest > 0 && start >= left && start < right) {
            *width = saturate(rest);
            return static_cast<int>(start);
        }
        return fallback;
    }
    case velnor::AnchorLeft:
        return inside(start);
    case velnor::AnchorRight:
        return *width > 0 ? inside(static_cast<qint64>(right) - *width - xr) : fallback;
    default:
        return fallback;
    }
}
