"""check: items outside the canvas, and pictures that are none."""

import unittest

from support import SOURCE, text_item
from support.checks import CheckTest, item

SMALL = "<width>100</width><height>80</height>"
ROLL = "<width>100</width><dpi>203</dpi>"


def line(x, y, more=""):
    return item("line", f"<x>{x}</x><y>{y}</y><length>20</length><thickness>4</thickness>{more}")


def box(x, y, width, height, thickness, item_class="rectangle"):
    return item(item_class, f"<x>{x}</x><y>{y}</y><width>{width}</width><height>{height}</height>"
                            f"<thickness>{thickness}</thickness>")


class Places(CheckTest):
    def assert_place(self, code, items, says="", canvas=SMALL):
        self.assert_found(code, items, canvas=canvas, says=says)

    def test_an_item_outside_the_canvas_is_told(self):
        for x, y in ((100, 0), (0, 80), (-20, 0), (0, -4)):
            with self.subTest(x=x, y=y):
                self.assert_place("outside-canvas", line(x, y),
                                  "lies outside the canvas, which is 100 x 80 dots")

    def test_an_item_that_an_edge_cuts_is_told_with_the_dots_that_are_lost(self):
        for x, y, says in ((81, 0, "1 dot at the right"), (0, 78, "2 dots at the bottom"),
                           (-1, 0, "1 dot at the left"), (-5, -1, "5 dots at the left, 1 dot at")):
            with self.subTest(x=x, y=y):
                self.assert_place("cut-off", line(x, y), says)

    def test_items_that_just_fit_are_fine(self):
        for x, y in ((0, 0), (80, 76)):
            with self.subTest(x=x, y=y):
                self.assert_silent(line(x, y), canvas=SMALL)

    def test_half_a_frame_is_told(self):
        self.assert_place("cut-off", box(0, 0, 100, 80, 4), "2 dots at the left")
        self.assert_place("cut-off", box(0, 0, 100, 80, 1), "1 dot at the right, 1 dot at the bottom")
        self.assert_silent(box(2, 2, 96, 76, 4), canvas=SMALL)
        self.assert_silent(box(0, 0, 99, 79, 1), canvas=SMALL)

    def test_turned_items_are_looked_at_where_they_lie(self):
        self.assert_silent(line(96, 0, "<rotation>90</rotation>"), canvas=SMALL)
        self.assert_place("cut-off", line(98, 0, "<rotation>90</rotation>"), "2 dots at the right")

    def test_the_box_of_a_text_may_be_larger_than_the_canvas(self):
        self.assert_silent(text_item("abc", more="<x>9</x><width>200</width>"), canvas=SMALL)
        self.assert_place("cut-off", text_item("abc", more="<x>9</x><width>200</width><flags>4</flags>"),
                          "at the right")

    def test_what_is_hidden_lies_nowhere(self):
        self.assert_silent(line(500, 0, "<hidden>1</hidden>"), canvas=SMALL)

    def test_the_margins_are_no_part_of_the_canvas(self):
        self.assert_place("outside-canvas", line(100, 0), canvas=SMALL + "<margin>30,30,30,30</margin>")

    def test_a_roll_reaches_below_its_last_item(self):
        self.assert_silent(line(0, 5000), canvas=ROLL)

    def test_what_lies_below_the_metre_of_a_roll_is_told(self):
        self.assert_place("beyond-metre", line(0, 7990), "reaches below the metre", ROLL)
        self.assert_place("beyond-metre", line(0, 9000), "lies below the metre", ROLL)

    def test_what_lies_far_from_the_origin_is_fine(self):
        self.assert_silent(line(0, 39000), canvas="<width>100</width><height>40000</height>")
        self.assert_silent(line(39000, 0), canvas="<width>40000</width><height>100</height>")


class Images(CheckTest):
    IMAGE = item("image", "<filepath>mark.png</filepath>")

    def test_a_file_that_is_no_picture_is_told(self):
        self.write("mark.png", "no picture")
        self.assert_found("image-unreadable", self.IMAGE, says='"mark.png" is no picture')

    def test_a_picture_is_fine_where_it_fits(self):
        self.write("mark.png", (SOURCE / "docs" / "pictures" / "first.png").read_bytes())
        self.assert_silent(self.IMAGE)
        self.assert_found("cut-off", self.IMAGE, canvas=SMALL, says="at the right")

    def test_the_folder_of_pictures_is_looked_in(self):
        self.write("art/mark.png", (SOURCE / "docs" / "pictures" / "first.png").read_bytes())
        self.assert_silent(self.IMAGE, "--images", "art")


if __name__ == "__main__":
    unittest.main()
