"""The names that a RELAX NG schema of a layout knows."""
import xml.etree.ElementTree as tree

NAMESPACE = "{http://relaxng.org/ns/structure/1.0}"


class Grammar:
    def __init__(self, path):
        self.root = tree.parse(path).getroot()
        self.definitions = {definition.get("name"): definition
                            for definition in self.root.findall(NAMESPACE + "define")}

    def content(self, node):
        """What the node holds, references followed, down to the next elements and no further."""
        for child in node:
            if child.tag == NAMESPACE + "ref":
                yield from self.content(self.definitions[child.get("name")])
                continue
            yield child
            if child.tag != NAMESPACE + "element":
                yield from self.content(child)

    def element(self, name):
        found = [element for element in self.root.iter(NAMESPACE + "element")
                 if element.get("name") == name]
        if len(found) != 1:
            raise SystemExit(f"{len(found)} elements are named {name}")
        return found[0]

    def children(self, node):
        return {child.get("name") for child in self.content(node)
                if child.tag == NAMESPACE + "element"}

    def item_classes(self):
        """The elements of an item by its class. A class stands beside its elements in a definition."""
        classes = {}
        for choice in self.definitions["item"].iter(NAMESPACE + "ref"):
            definition = self.definitions[choice.get("name")]
            name = definition.find(f"{NAMESPACE}attribute[@name='class']/{NAMESPACE}value")
            if name is not None:
                classes[name.text] = self.children(definition)
        return classes

    def attributes(self):
        """All but those of other namespaces, which mean something to editors alone."""
        names = {attribute.get("name") for attribute in self.root.iter(NAMESPACE + "attribute")}
        return {name for name in names if ":" not in name}
