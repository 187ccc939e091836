"""names.py LAYOUT.rng PARSER_WORDS

The schema knows the elements, classes and attributes that the parser knows, and no others.
"""
import sys

from grammar import Grammar
from parser_words import parser_words


def grid_names(words):
    for grid in words["grids"]:
        yield grid["list"], {grid["entry"]}
        yield grid["entry"], {grid["size"]}


def expected(words):
    """What each element holds, by what the parser says."""
    yield "the root", words["root"], {words["list"]}
    yield "the canvas", words["list"], {words["item"], *words["canvas"]}
    for name, children in grid_names(words):
        yield name, name, children


def main(schema, program):
    grammar = Grammar(schema)
    words = parser_words(program)
    pairs = [(what, grammar.children(grammar.element(name)), children)
             for what, name, children in expected(words)]
    classes = grammar.item_classes()
    pairs.append(("the classes", set(classes), set(words["items"])))
    pairs += [(name, classes.get(name, set()), {words["item"], *children})
              for name, children in words["items"].items()]
    pairs.append(("the attributes", grammar.attributes(), set(words["attributes"])))
    wrong = []
    for what, in_schema, in_parser in pairs:
        wrong += [f"{what}: only the schema knows {name}" for name in sorted(in_schema - in_parser)]
        wrong += [f"{what}: only the parser knows {name}" for name in sorted(in_parser - in_schema)]
    return "\n".join(wrong)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
