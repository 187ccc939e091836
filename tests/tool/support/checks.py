"""Runs `check` on one document and looks through what it finds."""

from support import ToolTest, layout

WIDE = "<width>400</width><height>300</height>"


def item(item_class, elements="", item_id="it"):
    """An item on three lines: its tag, its elements and its end."""
    return f'<VelnorItem class="{item_class}" id="{item_id}">\n{elements}\n</VelnorItem>'


class CheckTest(ToolTest):
    def findings(self, document, *arguments):
        """What is found in the text of a document, as JSON objects."""
        self.write("a.xml", document)
        return self.json_lines(self.succeed("check", "--json", "a.xml", *arguments))

    def codes(self, document, *arguments):
        return [finding["code"] for finding in self.findings(document, *arguments)]

    def assert_silent(self, items, *arguments, canvas=WIDE):
        self.assertEqual(self.findings(layout(items, canvas), *arguments), [])

    def assert_found(self, code, items, *arguments, canvas=WIDE, says="", line=None):
        """The one finding of the code."""
        found = self.findings(layout(items, canvas), *arguments)
        matches = [finding for finding in found if finding["code"] == code]
        self.assertEqual(len(matches), 1, found)
        self.assertIn(says, matches[0]["text"])
        if line is not None:
            self.assertEqual(matches[0]["line"], line)
        return matches[0]
