"""snippets.py SCHEMAS GUIDE...

Every block of XML in the guides that shows a layout or a parameter file is accepted: as it stands, or
as a part of a canvas, of an item of some class, or of a canvas and an item in it. Blocks of other
documents are passed over.
"""
import os
import re
import sys
import tempfile
import xml.etree.ElementTree as tree

from checking import accepted_by_both
from places import CLASSES, in_canvas

BLOCK = re.compile(r"^```xml[^\n]*\n(.*?)^```$", re.MULTILINE | re.DOTALL)
ROOT = re.compile(r"(?:<\?.*?\?>|<!--.*?-->|\s)*<([\w:]+)", re.DOTALL)


def readings(block):
    """The schema and the whole files of which the block may be a part; one of them is enough."""
    root = ROOT.match(block).group(1)
    if root == "VelnorRoot":
        return "layout", [block]
    if root == "VelnorParams":
        return "params", [block]
    if root == "VelnorItems":
        return "layout", [f"<VelnorRoot>{block}</VelnorRoot>"]
    return "layout", list(parts(block))


def parts(block):
    """The first elements may be those of the canvas, the rest those of an item."""
    elements = [tree.tostring(element, encoding="unicode") for element in tree.fromstring(
        f"<block>{block}</block>")]
    yield in_canvas(block)
    for split in range(len(elements)):
        for kind in CLASSES:
            item = f'<VelnorItem class="{kind}">{"".join(elements[split:])}</VelnorItem>'
            yield in_canvas("".join(elements[:split]) + item)


def is_of_another_document(block):
    return "xmlns=" in block


def refused_blocks(schemas, guide, folder):
    with open(guide, encoding="utf-8") as text:
        blocks = BLOCK.findall(text.read())
    for number, block in enumerate(blocks, 1):
        if is_of_another_document(block):
            continue
        schema, texts = readings(block)
        files = [os.path.join(folder, f"{index}.xml") for index in range(len(texts))]
        for file, content in zip(files, texts):
            with open(file, "w", encoding="utf-8") as output:
                output.write(content)
        if not accepted_by_both(os.path.join(schemas, schema), files):
            yield f"{guide}: block {number} is refused:\n{block}"


def main(schemas, *guides):
    with tempfile.TemporaryDirectory() as folder:
        return "\n".join(message for guide in guides
                         for message in refused_blocks(schemas, guide, folder))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
