"""batch: what columns and fixed values do to the layout."""

import unittest

from support import SOURCE, UNREADABLE, USAGE, layout, png_header, text_item
from support.batch import BatchTest, csv

LINKED = ('<width link="wide">20</width><height>8</height>')


class Values(BatchTest):
    def widths(self, folder="out"):
        return [png_header(data)[0] for _, data in sorted(self.pictures(folder).items())]

    def test_a_column_fills_a_placeholder(self):
        self.batch("a.xml", csv(["w"], [5], [6]))
        self.assertEqual(self.widths(), [5, 6])

    def test_a_column_sets_an_element(self):
        self.write("b.xml", layout())
        self.batch("b.xml", csv(["ticket.width", "ticket.height"], [5, 6], [7, 8]))
        self.assertEqual([png_header(data)[:2] for _, data in sorted(self.pictures().items())],
                         [(5, 6), (7, 8)])

    def test_a_column_sets_an_element_by_its_link(self):
        self.write("b.xml", layout(canvas=LINKED))
        self.batch("b.xml", csv(["@ticket.wide"], [5], [6]))
        self.assertEqual(self.widths(), [5, 6])

    def test_each_row_has_the_picture_that_render_makes(self):
        self.batch("text.xml", csv(["name", "greeting.bold"], ["Ada", 1], ["Bob", 0]), "--jobs", 1)
        for number, name, bold in ((1, "Ada", 1), (2, "Bob", 0)):
            self.succeed("render", "text.xml", "-o", "one.png", "--tag", f"name={name}", "--set",
                         f"greeting.bold={bold}")
            self.assertEqual(self.pictures()[f"{number}.png"],
                             (self.folder / "one.png").read_bytes())

    def test_a_value_of_one_row_is_gone_in_the_next(self):
        self.write("b.xml", layout())
        self.batch("b.xml", '{"ticket.width":5}\n{}\n', "--jobs", 1, name="d.jsonl")
        self.assertEqual(self.widths(), [5, 200])

    def test_columns_that_the_document_does_not_use_are_fine(self):
        self.batch("a.xml", csv(["w", "address", "Tel.", "a.b.c", "", "名"], [5, 1, 2, 3, 4, 5]))
        self.assertEqual(self.widths(), [5])

    def test_an_object_that_does_not_exist_is_told_once_before_any_row(self):
        self.refuse(USAGE, "a.xml", csv(["w", "nobody.text"], [5, "x"], [6, "y"]),
                    says="column 'nobody.text': the document has no such object")

    def test_a_link_that_does_not_exist_is_told_once_before_any_row(self):
        self.refuse(USAGE, "a.xml", csv(["w", "@ticket.none"], [5, "x"], [6, "y"]),
                    says="column '@ticket.none': the document has no such link")
        self.refuse(USAGE, "a.xml", csv(["w", "@wide"], [5, "x"]), says="'wide'")

    def test_fixed_values_hold_for_all_rows(self):
        self.write("b.xml", layout(canvas="<width>%w%</width><height>%h%</height>"))
        self.batch("b.xml", csv(["w"], [5], [6]), "--tag", "h=9")
        self.assertEqual({png_header(data)[1] for data in self.pictures().values()}, {9})
        self.batch("b.xml", csv(["w"], [5], [6]), "--tag", "h=9", "--set", "ticket.height=3")
        self.assertEqual({png_header(data)[1] for data in self.pictures().values()}, {3})

    def test_the_value_of_a_row_wins_over_a_fixed_one(self):
        self.write("b.xml", layout(canvas=LINKED))
        for document, column, option, name in (("a.xml", "w", "--tag", "w"),
                                               ("b.xml", "ticket.width", "--set", "ticket.width"),
                                               ("b.xml", "@ticket.wide", "--link", "ticket.wide"),
                                               ("b.xml", "@ticket.wide", "--set", "ticket.width")):
            with self.subTest(option=option):
                self.batch(document, csv([column], [5], [6]), option, f"{name}=9")
                self.assertEqual(self.widths(), [5, 6])

    def test_an_empty_value_wins_over_a_fixed_tag_too(self):
        self.batch("text.xml", csv(["name", "x"], ["", 1]), "--tag", "name=Ada")
        self.batch("text.xml", csv(["x"], [1]), "--tag", "name=", output="empty/{number}.png")
        self.assertEqual(self.pictures(), self.pictures("empty"))

    def test_a_row_that_lacks_a_key_has_the_fixed_value(self):
        self.batch("a.xml", '{"w":5}\n{"x":1}\n', "--tag", "w=9", name="d.jsonl")
        self.assertEqual(self.widths(), [5, 9])

    def test_params_hold_for_all_rows(self):
        self.write("b.xml", layout())
        self.write("p.xml", '<VelnorParams><VelnorParam id="ticket"><width>40</width>'
                            "<height>5</height></VelnorParam></VelnorParams>")
        self.batch("b.xml", csv(["ticket.height"], [6], [7]), "--params", "p.xml")
        self.assertEqual([png_header(data)[:2] for _, data in sorted(self.pictures().items())],
                         [(40, 6), (40, 7)])

    def test_pictures_and_fonts_of_other_folders_are_used(self):
        self.write("art/mark.png", (SOURCE / "docs" / "pictures" / "first.png").read_bytes())
        self.write("sub/b.xml", layout(text_item("%name%") + '<VelnorItem class="image" id="i">'
                                       "<filepath>x/mark.png</filepath></VelnorItem>"))
        more = ("--images", "art", "--fonts", "fonts")
        self.batch("sub/b.xml", csv(["name"], ["a"]), *more)
        self.succeed("render", "sub/b.xml", "-o", "one.png", "--tag", "name=a", *more)
        self.assertEqual(self.pictures()["1.png"], (self.folder / "one.png").read_bytes())

    def test_mono_gives_one_bit_a_dot(self):
        self.batch("text.xml", csv(["name"], ["a"]), "--mono", "diffuse")
        self.assertEqual(png_header(self.pictures()["1.png"])[2:], (1, 3))

    def test_fixed_values_without_a_place_are_refused(self):
        data = csv(["w"], [5])
        self.refuse(USAGE, "a.xml", data, "--set", "nobody.text=a", says="--set nobody.text")
        self.refuse(USAGE, "a.xml", data, "--link", "ticket.none=a", says="--link ticket.none")
        self.refuse(USAGE, "a.xml", data, "--fonts", "none", says="'none'")
        self.refuse(UNREADABLE, "a.xml", data, "--params", "none.xml", says="'none.xml'")


class Layouts(BatchTest):
    def test_a_layout_that_is_missing_ends_the_batch(self):
        self.refuse(UNREADABLE, "none.xml", csv(["w"], [5]), says="'none.xml': No such file")

    def test_a_fault_that_no_row_changes_ends_the_batch(self):
        for text, says in (("<VelnorRoot>\n<b></VelnorRoot>", "line 2"), ("<html/>", "no layout"),
                           (layout(canvas=""), "no width")):
            self.write("b.xml", text)
            self.refuse(UNREADABLE, "b.xml", csv(["w"], [5], [6]), says=says)
        self.refuse(UNREADABLE, "b.xml", "", name="d.jsonl", says="no width")

    def test_a_fault_that_rows_can_change_is_theirs(self):
        errors = self.fail_rows("a.xml", csv(["w"], [5], ["wide"], [7]))
        self.assertEqual(errors, ["velnorxmltoimg: row 2: 'd.csv', line 3: 'a.xml': the canvas "
                                  "has no width"])
        self.write("b.xml", layout(canvas="<height>8</height>"))
        self.batch("b.xml", csv(["ticket.width"], [5]))

    def test_placeholders_may_hold_the_elements_of_a_document(self):
        self.write("b.xml", layout("%open%<width>5</width>%close%", "<height>8</height>"))
        self.batch("b.xml", csv(["open", "close"], ["", ""], ["<!--", "--><width>6</width>"]))
        self.assertEqual([png_header(data)[0] for _, data in sorted(self.pictures().items())],
                         [5, 6])
        self.write("b.xml", layout("%open%</x>", "<width>5</width><height>8</height>"))
        errors = self.fail_rows("b.xml", csv(["open"], ["<x>"], ["</x>"], ["<x>"]))
        self.assertEqual(len(errors), 1)
        self.assertIn("row 2: 'd.csv', line 3: 'b.xml': line 5, column ", errors[0])

    def test_the_layout_comes_from_a_file(self):
        self.refuse(USAGE, "-", csv(["w"], [5]), says="LAYOUT")


if __name__ == "__main__":
    unittest.main()
