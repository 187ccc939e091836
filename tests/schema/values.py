"""values.py SCHEMA PARSER_WORDS

For each element the schema takes the texts that the parser takes, and no others: a few samples show it.
"""
import os
import sys
import tempfile
from xml.sax.saxutils import escape

from checking import accepted_by_both
from parser_words import SAMPLES, parser_words
from places import in_canvas, in_item

# The parser takes any number here; what lies outside the range means nothing.
RANGES = {"rotation": range(-360, 361), "type": range(1, 2**31)}


def elements(words):
    """The name of each element, what the parser takes there, and what makes a file of it."""
    for name, taken in words["canvas"].items():
        if taken is not None:
            yield name, taken, in_canvas
    for item_class, fields in words["items"].items():
        for name, taken in fields.items():
            yield name, taken, lambda text, kind=item_class: in_item(text, kind)
    for grid in words["grids"]:
        around = "<{list}><{entry}>".format(**grid), "</{entry}></{list}>".format(**grid)
        yield grid["size"], words["sizes"], lambda text, a=around: in_canvas(text.join(a))


def has_a_meaning(name, sample):
    return name not in RANGES or int(sample) in RANGES[name]


def write_cases(words, folder):
    """Each file with what it shows and whether it should be accepted."""
    cases = {}
    for name, taken, around in elements(words):
        for sample in SAMPLES:
            text = around(f"<{name}>{escape(sample)}</{name}>")
            file = os.path.join(folder, f"{len(cases)}.xml")
            with open(file, "w", encoding="utf-8", newline="") as output:
                output.write(text)
            cases[file] = text, sample in taken and has_a_meaning(name, sample)
    return cases


def main(schema, program):
    with tempfile.TemporaryDirectory() as folder:
        cases = write_cases(parser_words(program), folder)
        accepted = accepted_by_both(schema, list(cases))
    return "\n".join(f"{'accepted' if file in accepted else 'refused'}: {text!r}"
                     for file, (text, expected) in cases.items()
                     if (file in accepted) != expected)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
