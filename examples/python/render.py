#!/usr/bin/env python3
"""Renders one layout document into a picture.

A SETTING is one of

  name=value             what replaces %name% in the document: raw XML text, first value counts
  object.property=value  text of an element of the item "object": plain text, last value counts
  @object.link=value     the same; the element is found by its attribute link="link"
  --values=FILE          a UTF-8 file with one setting a line; blank lines and lines that begin
                         with # are skipped

What validation finds is printed to standard error; a picture is made all the same.

Exit status: 0 the picture was written, 1 it was not, 2 the arguments are wrong.
"""

from __future__ import annotations

import argparse
import sys
from collections.abc import Iterator

import velnorxmltoimg

VALUES_OPTION = "--values="


def parse_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--library", default=velnorxmltoimg.DEFAULT_LIBRARY, metavar="FILE")
    parser.add_argument("layout", metavar="LAYOUT")
    parser.add_argument("output", metavar="OUTPUT")
    parser.add_argument("settings", metavar="SETTING", nargs=argparse.REMAINDER)
    return parser.parse_args()


def settings_of(arguments: list[str]) -> Iterator[str]:
    """The settings in their order, with those of files in the place of the files."""
    for argument in arguments:
        if not argument.startswith(VALUES_OPTION):
            yield argument
            continue
        with open(argument.removeprefix(VALUES_OPTION), encoding="utf-8") as file:
            lines = file.read().split("\n")
        yield from (line for line in lines if line and not line.startswith("#"))


def set_value(layout: velnorxmltoimg.Layout, setting: str) -> None:
    name, equals, value = setting.partition("=")
    if not equals or name in ("", "@"):
        raise ValueError(f"'{setting}' is not of the form name=value")
    if name.startswith("@"):
        layout.set_link(name[1:], value)
    else:
        layout.set_object(name, value)


def render(arguments: argparse.Namespace) -> None:
    library = velnorxmltoimg.Library(arguments.library)
    with velnorxmltoimg.Layout(library, arguments.layout) as layout:
        for setting in settings_of(arguments.settings):
            set_value(layout, setting)
        for finding in layout.check():
            print(f"render.py: {finding}", file=sys.stderr)
        layout.render(arguments.output)


def main() -> int:
    arguments = parse_arguments()
    try:
        render(arguments)
    except (velnorxmltoimg.VelnorError, OSError) as error:
        print(f"render.py: {error}", file=sys.stderr)
        return 1
    except ValueError as error:
        print(f"render.py: {error}", file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
