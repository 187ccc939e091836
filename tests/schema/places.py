"""Where a fragment of a document stands: what makes a whole file of it, and which schema that has."""

CLASSES = ("text", "image", "barcode", "rectangle", "ellipse", "line")


def in_canvas(fragment):
    return f'<VelnorRoot><VelnorItems class="canvas">{fragment}</VelnorItems></VelnorRoot>'


def in_item(fragment, item_class):
    return in_canvas(f'<VelnorItem class="{item_class}">{fragment}</VelnorItem>')


def in_object(fragment):
    return f'<VelnorParams><VelnorParam id="a">{fragment}</VelnorParam></VelnorParams>'


def whole_file(place, fragment):
    """The name of the schema, "layout" or "params", and the text."""
    if place in CLASSES:
        return "layout", in_item(fragment, place)
    return {
        "canvas": ("layout", in_canvas(fragment)),
        "file": ("layout", fragment),
        "object": ("params", in_object(fragment)),
        "params file": ("params", fragment),
    }[place]
