"""check: what it is given, what it prints and how it ends."""

import json
import re
import time
import unittest

from support import (DONE, FINDINGS, LAYOUTS, SOURCE, UNREADABLE, USAGE, layout, text_item)
from support.checks import CheckTest, item

TWICE = text_item("a") + "\n" + text_item("b", more="<y>40</y>")


class Output(CheckTest):
    def test_a_good_document_is_passed_without_a_word(self):
        self.write("a.xml", layout(text_item("a")))
        self.assertEqual(self.succeed("check", "a.xml"), b"")
        self.assertEqual(self.succeed("check", "--json", "--werror", "a.xml"), b"")

    def test_a_finding_is_one_line_with_file_line_item_and_code(self):
        self.write("a.xml", layout(TWICE))
        self.assertEqual(self.succeed("check", "a.xml").decode(),
                         'a.xml:6: text "greeting": the same id stands in line 5 [repeated-id]\n')

    def test_json_has_its_keys_in_order(self):
        self.write("a.xml", layout(TWICE))
        line = self.succeed("check", "--json", "a.xml").decode()
        self.assertEqual(json.loads(line, object_pairs_hook=list),
                         [("file", "a.xml"), ("line", 6), ("code", "repeated-id"),
                          ("item", "greeting"), ("kind", "text"),
                          ("text", "the same id stands in line 5")])

    def test_the_line_is_null_where_there_is_none(self):
        self.write("a.xml", layout())
        found = self.json_lines(self.succeed("check", "--json", "a.xml", "--tag", "x=1"))
        self.assertEqual([(finding["line"], finding["kind"], finding["item"]) for finding in found],
                         [(None, "document", "")])

    def test_findings_come_by_line(self):
        self.write("a.xml", layout(item("line") + "\n" + item("txt", item_id="b") + "\n" +
                                   item("line", "<thickness>1</thickness>", "c")))
        lines = [finding["line"] for finding in
                 self.json_lines(self.succeed("check", "--json", "a.xml"))]
        self.assertEqual(lines, sorted(lines))
        self.assertGreater(len(lines), 3)

    def test_line_feeds_and_control_characters_of_values_stay_on_one_line(self):
        self.write("a.xml", layout(item("text", "<text>a</text><fontsize>9</fontsize>"
                                        "<fontname>No&#10;Such\tFont</fontname>")))
        output = self.succeed("check", "a.xml").decode()
        self.assertEqual(output.count("\n"), 1, output)
        self.assertIn(r"No\nSuch\tFont", output)

    def test_several_documents_are_told_apart(self):
        self.write("a.xml", layout(TWICE))
        self.write("sub/b.xml", layout(item("line")))
        found = self.json_lines(self.succeed("check", "--json", "a.xml", "sub/b.xml"))
        self.assertEqual({finding["file"] for finding in found}, {"a.xml", "sub/b.xml"})

    def test_a_dash_is_the_document_of_standard_input(self):
        output = self.succeed("check", "-", "--set", "ticket.height=90", stdin=layout(TWICE).encode())
        self.assertTrue(output.startswith(b"-:6: "), output)

    def test_fonts_of_one_document_are_no_fonts_of_the_next(self):
        self.write("a.xml", layout(text_item("a")))
        self.write("sub/b.xml", layout(text_item("a")))
        found = self.json_lines(self.succeed("check", "--json", "a.xml", "sub/b.xml", "a.xml"))
        self.assertEqual([(finding["file"], finding["code"]) for finding in found],
                         [("sub/b.xml", "font-substituted")])

    def test_values_of_all_kinds_are_used(self):
        self.write("p.xml", '<VelnorParams><VelnorParam id="ticket"><height>80</height>'
                            "</VelnorParam></VelnorParams>")
        document = layout(text_item("%a%"), '<width link="w">x</width><height>y</height>')
        self.assertEqual(self.findings(document, "--tag", "a=b", "--link", "ticket.w=300",
                                       "--params", "p.xml"), [])


class Codes(CheckTest):
    def listed(self):
        return dict(re.split(r"\s+", line, maxsplit=1)
                    for line in self.succeed("check", "--codes").decode().splitlines())

    def test_codes_are_listed_each_with_its_meaning(self):
        codes = self.listed()
        self.assertGreater(len(codes), 40)
        for code, meaning in codes.items():
            self.assertRegex(code, r"^[a-z]+(-[a-z]+)*$")
            self.assertTrue(meaning)

    def test_the_guide_describes_the_codes_that_there_are(self):
        guide = (SOURCE / "docs" / "checking.md").read_text()
        found = guide.split("\n## What is found\n")[1].split("\n## ")[0]
        described = re.findall(r"^\| `([a-z-]+)` \|", found, re.MULTILINE)
        self.assertEqual(described, list(self.listed()))

    def test_findings_of_ignored_codes_are_left_out(self):
        self.write("a.xml", layout(TWICE + item("line")))
        found = self.json_lines(self.succeed("check", "--json", "a.xml", "--ignore", "repeated-id",
                                             "--ignore", "length"))
        self.assertEqual([finding["code"] for finding in found], ["thickness"])

    def test_an_unknown_code_to_ignore_is_told(self):
        self.write("a.xml", layout())
        self.assert_refused(USAGE, "check", "a.xml", "--ignore", "nothing", says="no code 'nothing'")


class Ends(CheckTest):
    def code(self, *arguments):
        return self.run_tool("check", *arguments).returncode

    def test_findings_are_no_failure_by_themselves(self):
        self.write("a.xml", layout(TWICE))
        self.assertEqual(self.code("a.xml"), DONE)

    def test_exit_4_where_findings_are_errors(self):
        self.write("a.xml", layout(TWICE))
        self.assertEqual(self.code("a.xml", "--werror"), FINDINGS)

    def test_ignored_findings_are_no_errors(self):
        self.write("a.xml", layout(TWICE))
        self.assertEqual(self.code("a.xml", "--werror", "--ignore", "repeated-id"), DONE)

    def test_a_faulty_document_counts_for_more_than_findings(self):
        self.write("a.xml", layout(TWICE))
        self.write("b.xml", "<")
        self.assertEqual(self.code("a.xml", "b.xml", "--werror"), UNREADABLE)

    def test_the_documents_behind_a_faulty_one_are_checked(self):
        self.write("a.xml", layout(TWICE))
        self.write("b.xml", "<")
        done = self.run_tool("check", "--json", "missing.xml", "b.xml", "a.xml")
        self.assertEqual(done.returncode, UNREADABLE)
        self.assertEqual([finding["code"] for finding in self.json_lines(done.stdout)],
                         ["unreadable", "xml", "repeated-id"])

    def test_a_run_without_a_document_is_refused(self):
        self.assert_refused(USAGE, "check", says="LAYOUT is required")

    def test_a_value_without_a_place_is_refused(self):
        self.write("a.xml", layout())
        self.assert_refused(USAGE, "check", "a.xml", "--set", "nobody.text=a", says="no such object")
        self.assert_refused(USAGE, "check", "a.xml", "--link", "ticket.nothing=a", says="no such link")


class Faults(CheckTest):
    def fault(self, document, *arguments):
        """The one finding of a document that is not drawn."""
        self.write("a.xml", document)
        done = self.run_tool("check", "--json", "a.xml", *arguments)
        self.assertEqual((done.returncode, done.stderr), (UNREADABLE, b""))
        found = self.json_lines(done.stdout)
        self.assertEqual(len(found), 1, found)
        return found[0]

    def test_broken_xml_is_told_with_line_and_column(self):
        found = self.fault("<VelnorRoot>\n  <VelnorItems>\n  </VelnorRoot>\n")
        self.assertEqual((found["code"], found["line"], found["kind"]), ("xml", 3, "document"))
        self.assertIn("column", found["text"])

    def test_a_value_that_breaks_the_document_is_told(self):
        found = self.fault(layout(text_item("%name%")), "--tag", "name=a&b")
        self.assertEqual((found["code"], found["line"]), ("xml", 5))

    def test_broken_xml_is_told_where_values_of_objects_are_given_too(self):
        self.assertEqual(self.fault("<VelnorRoot>", "--set", "a.b=c", "--link", "a.b=c")["code"],
                         "xml")

    def test_another_root_has_no_canvas(self):
        self.assertEqual(self.fault("<html/>")["code"], "no-canvas")

    def test_a_list_of_another_class_is_no_canvas(self):
        found = self.fault('<VelnorRoot>\n<VelnorItems class="page"/></VelnorRoot>')
        self.assertEqual((found["code"], found["line"]), ("no-canvas", 2))

    def test_a_canvas_without_a_size_is_told(self):
        for canvas in ("", "<width>0</width>", "<width>9</width><height>0</height>"):
            with self.subTest(canvas=canvas):
                found = self.fault(layout(canvas=canvas))
                self.assertEqual((found["code"], found["line"], found["kind"], found["item"]),
                                 ("canvas-size", 3, "canvas", "ticket"))

    def test_a_width_that_a_value_gives_is_one(self):
        self.assertEqual(self.findings(layout(canvas="<height>9</height>"), "--set",
                                       "ticket.width=9"), [])

    def test_what_is_beyond_the_limits_is_told(self):
        canvas = "<width>100000</width><height>100000</height>"
        self.assertEqual(self.fault(layout(canvas=canvas))["code"], "limits")
        margins = "<width>9</width><height>9</height><margin>99999,99999,0,0</margin>"
        self.assertEqual(self.fault(layout(canvas=margins))["code"], "limits")
        self.assertEqual(self.fault(layout("<a>" * 300 + "</a>" * 300))["code"], "limits")

    def test_a_folder_and_a_missing_parameter_file_cannot_be_read(self):
        self.write("a.xml", layout())
        for arguments in (("fonts",), ("a.xml", "--params", "p.xml")):
            done = self.run_tool("check", "--json", *arguments)
            self.assertEqual(done.returncode, UNREADABLE)
            self.assertEqual(self.json_lines(done.stdout)[0]["code"], "unreadable")


class Documents(CheckTest):
    def settings(self, document):
        values = document.with_suffix(".values")
        lines = values.read_text().splitlines() if values.exists() else []
        for line in lines:
            if line and not line.startswith("#"):
                name = line.split("=")[0]
                option = "--link" if line[0] == "@" else "--set" if "." in name else "--tag"
                yield from (option, line.lstrip("@"))

    def test_the_example_layouts_are_clean_with_their_values(self):
        documents = sorted(LAYOUTS.glob("*.xml"))
        self.assertGreater(len(documents), 4)
        for document in documents:
            with self.subTest(document=document.name):
                self.assertEqual(self.succeed("check", document, *self.settings(document)), b"")

    def test_ten_thousand_items_take_seconds(self):
        items = "\n".join(
            text_item(str(i), f"t{i}", f"<x>{i % 20 * 30}</x><y>{i // 20 * 14}</y>")
            for i in range(10000))
        self.write("a.xml", layout(items, "<width>800</width><height>8000</height>"))
        start = time.monotonic()
        self.succeed("check", "a.xml")
        self.assertLess(time.monotonic() - start, 60)


if __name__ == "__main__":
    unittest.main()
