"""documentation.py SCHEMAS

Every element, attribute and keyword of the schemas has a documentation, in both forms of a schema.
"""
import os
import sys
import xml.etree.ElementTree as tree

RELAX_NG = "{http://relaxng.org/ns/structure/1.0}"
RELAX_NG_TEXT = "{http://relaxng.org/ns/compatibility/annotations/1.0}documentation"
XSD = "{http://www.w3.org/2001/XMLSchema}"
XSD_TEXT = f"{XSD}annotation/{XSD}documentation"


def is_sentence(documentation):
    text = "" if documentation is None else documentation.text.strip()
    return len(text) > 2 and text.endswith(".")


def undocumented_in_relax_ng(root):
    for parent in root.iter():
        children = list(parent)
        for child, after in zip(children, children[1:] + [None]):
            if child.tag in (RELAX_NG + "element", RELAX_NG + "attribute"):
                documentation = child.find(RELAX_NG_TEXT)
            elif child.tag == RELAX_NG + "value" and child.text:
                # A value holds nothing but itself: its documentation stands behind it.
                documentation = after if after is not None and after.tag == RELAX_NG_TEXT else None
            else:
                continue
            if not is_sentence(documentation):
                yield f"{child.tag[len(RELAX_NG):]} {child.get('name') or child.text}"


def undocumented_in_xsd(root):
    for name in ("element", "attribute", "enumeration"):
        for found in root.iter(XSD + name):
            empty = name == "enumeration" and not found.get("value")
            if found.get("ref") is None and not empty and not is_sentence(found.find(XSD_TEXT)):
                yield f"{name} {found.get('name') or found.get('value')}"


def main(schemas):
    wrong = []
    for name in ("layout", "params"):
        for suffix, undocumented in (("rng", undocumented_in_relax_ng),
                                     ("xsd", undocumented_in_xsd)):
            file = os.path.join(schemas, f"{name}.{suffix}")
            wrong += [f"{file}: {what}" for what in undocumented(tree.parse(file).getroot())]
    return "\n".join(wrong)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
