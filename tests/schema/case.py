"""case.py SCHEMAS CASES NAME

The case NAME of accepted.txt is accepted, that of refused.txt refused; NAME stands in CASES.
"""
import os
import sys
import tempfile

from checking import accepted_by_both
from places import whole_file


def fragment_of(cases, name):
    with open(cases, encoding="utf-8") as text:
        lines = text.read().splitlines()
    return lines[lines.index(name) + 1].strip().split(": ", 1)


def main(schemas, cases, name):
    schema, text = whole_file(*fragment_of(cases, name))
    with tempfile.TemporaryDirectory() as folder:
        document = os.path.join(folder, "document.xml")
        with open(document, "w", encoding="utf-8") as file:
            file.write(text)
        accepted = document in accepted_by_both(os.path.join(schemas, schema), [document])
    expected = os.path.basename(cases) == "accepted.txt"
    return "" if accepted == expected else f"{'accepted' if accepted else 'refused'}: {text}"


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
