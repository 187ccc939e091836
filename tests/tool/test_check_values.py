"""check: values that are not what their elements take."""

import unittest

from support import text_item
from support.checks import CheckTest, item

SIZE = "<width>400</width><height>300</height>"
ROWS = SIZE + ("<RowDefinitions><RowDefinition><height>100</height></RowDefinition>"
               "<RowDefinition><height>1*</height></RowDefinition></RowDefinitions>")


class Malformed(CheckTest):
    def assert_malformed(self, element, says, canvas=SIZE):
        self.assert_found("malformed-value", text_item("a", more="\n" + element), canvas=canvas,
                          says=says, line=6)

    def test_what_was_written_and_what_is_taken_is_told(self):
        for element, says in (
                ("<x>12px</x>", 'x takes a whole number, not "12px"'),
                ("<y>3.5</y>", 'y takes a whole number, not "3.5"'),
                ("<bold>yes</bold>", 'bold takes a whole number, not "yes"'),
                ("<margin>1,2,3</margin>", "margin takes four whole numbers with commas"),
                ("<hanchor>centre</hanchor>", 'hanchor takes left, center or right, not "centre"'),
                ("<vanchor>middle</vanchor>", "vanchor takes top, center or bottom")):
            with self.subTest(element=element):
                self.assert_malformed(element, says)

    def test_an_empty_number_is_told(self):
        self.assert_malformed("<width/>", "width takes a whole number, but is empty")
        self.assert_malformed("<rotation> </rotation>", "but is empty")

    def test_values_of_the_canvas_are_looked_at(self):
        for element, says in (
                ("<antialiasText>3</antialiasText>", 'antialiasText takes 0, 1 or 2, not "3"'),
                ("<dpi>203dpi</dpi>", "dpi takes a whole number"),
                ("<ejectRetract>out</ejectRetract>", "ejectRetract takes eject or retract")):
            with self.subTest(element=element):
                found = self.assert_found("malformed-value", "", canvas=SIZE + element, says=says)
                self.assertEqual(found["kind"], "canvas")

    def test_lengths_of_the_grid_are_looked_at(self):
        for length in ("auto", "*", "50%", "2 *x"):
            with self.subTest(length=length):
                self.assert_found("malformed-value", "", canvas=SIZE + "<RowDefinitions>"
                                  f"<RowDefinition><height>{length}</height></RowDefinition>"
                                  "</RowDefinitions>", says="height takes a whole number, Auto, or")

    def test_a_row_without_a_height_is_told(self):
        self.assert_found("missing-length", "", canvas=SIZE + "<RowDefinitions><RowDefinition/>"
                          "</RowDefinitions>", says="RowDefinition 0 has no height and so 0 dots")

    def test_signs_and_blanks_around_numbers_are_fine(self):
        self.assert_silent(text_item("a", more="<x> +7 </x><y>-0</y><hanchor> Left </hanchor>"
                                               "<margin>1, 2,3 ,4</margin>"))

    def test_a_value_that_was_set_is_looked_at(self):
        self.assert_found("malformed-value", text_item("a"), "--set", "greeting.fontsize=large",
                          says='not "large"', line=5)
        self.assert_found("malformed-value", text_item("a"), "--set", "greeting.x=far",
                          says='not "far"', line=5)


class Grid(CheckTest):
    def test_a_cell_past_the_last_one_is_told(self):
        self.assert_found("cell-outside", text_item("a", more="\n<row>2</row>"), canvas=ROWS,
                          says="row 2 became 0: the last one is 1")
        self.assert_found("cell-outside", text_item("a", more="<column>1</column>"),
                          says="column 1 became 0")

    def test_a_negative_cell_is_told(self):
        self.assert_found("cell-outside", text_item("a", more="<row>-1</row>"), canvas=ROWS,
                          says="row -1 lies outside the grid")

    def test_a_span_past_the_end_is_told(self):
        self.assert_found("span-outside", text_item("a", more="<row>1</row><rowspan>2</rowspan>"),
                          canvas=ROWS, says="rowspan 2 became 1: from row 1 on there are 1")
        self.assert_found("span-outside", text_item("a", more="<columnspan>0</columnspan>"),
                          says="columnspan 0 became 1")
        self.assert_found("span-outside", text_item("a", more="<rowspan>2147483647</rowspan>"))

    def test_cells_and_spans_inside_the_grid_are_fine(self):
        self.assert_silent(text_item("a", more="<row>0</row><rowspan>2</rowspan>") +
                           text_item("b", "b", "<row>1</row><columnspan>1</columnspan>"),
                           canvas=ROWS)


class Angles(CheckTest):
    def test_an_angle_that_counts_as_none_is_told(self):
        for angle, says in (("361", "rotation 361 counts as none"), ("-361", "-360 to 360"),
                            ("-1", "rotation -1 stands for none; write 359")):
            with self.subTest(angle=angle):
                self.assert_found("rotation-range",
                                  text_item("a", more=f"<rotation>{angle}</rotation>"), says=says)

    def test_angles_of_a_turn_are_fine(self):
        for angle in ("0", "360", "-360"):
            with self.subTest(angle=angle):
                self.assert_silent(text_item("a", more=f"<rotation>{angle}</rotation>"))


class Sizes(CheckTest):
    def test_a_box_without_a_side_is_told(self):
        for item_class in ("rectangle", "ellipse"):
            with self.subTest(item_class=item_class):
                self.assert_found("missing-size", item(item_class, "<width>9</width><x>9</x><y>9</y>"
                                                       "<thickness>1</thickness>"),
                                  says="needs a height of 1 or more")

    def test_a_box_with_both_sides_is_fine(self):
        self.assert_silent(item("ellipse", "<x>9</x><y>9</y><width>9</width><height>9</height>"
                                           "<thickness>1</thickness>"))


if __name__ == "__main__":
    unittest.main()
