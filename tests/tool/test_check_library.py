"""check: what the library's own validation says."""

import unittest

from support import layout, text_item
from support.checks import CheckTest, item

LINE = "<length>20</length><thickness>2</thickness>"
BARCODE = "<type>20</type><x>60</x><y>60</y><width>200</width>"


def text_in(font, item_id="t", more=""):
    return item("text", f"<text>a</text><fontsize>9</fontsize><fontname>{font}</fontname>{more}",
                item_id)


class Messages(CheckTest):
    def test_a_missing_picture_is_told_with_its_path(self):
        self.assert_found("image-missing", item("image", "<filepath>no/logo.png</filepath>"),
                          says='there is no file "no/logo.png"')

    def test_a_text_without_a_font_name_is_told(self):
        self.assert_found("font-not-named", item("text", "<text>a</text><fontsize>9</fontsize>"),
                          says="has no fontname")

    def test_a_substituted_font_is_told_with_the_other_one(self):
        self.assert_found("font-substituted", text_in("Liberation Sens"),
                          says='there is no font "Liberation Sens"; "')

    def test_styles_that_the_font_lacks_are_told(self):
        for style in ("Bold", "Italic", "BoldItalic"):
            (self.folder / "fonts" / f"LiberationSans-{style}.ttf").unlink(missing_ok=True)
        self.assert_found("bold-missing", text_in("Liberation Sans", more="<bold>1</bold>"))
        self.assert_found("italic-missing", text_in("Liberation Sans", more="<italic>1</italic>"))

    def test_a_barcode_without_data_is_told_once(self):
        self.assertEqual(self.codes(layout(item("barcode", BARCODE))), ["barcode-empty"])

    def test_a_type_that_does_not_exist_is_told_once(self):
        document = layout(item("barcode", "<type>143143</type><text>a</text>"))
        self.assertEqual(self.codes(document), ["barcode-type"])

    def test_data_that_are_no_bytes_are_told(self):
        self.assert_found("barcode-not-hexadecimal",
                          item("barcode", BARCODE + "<inputmode>0</inputmode><text>xyz</text>"))

    def test_thickness_style_and_length_are_told(self):
        box = "<x>9</x><y>9</y><width>9</width><height>9</height>"
        for item_class in ("rectangle", "ellipse"):
            self.assert_found("thickness", item(item_class, box), says="thickness is 0")
            self.assert_found("style", item(item_class, box + "<thickness>1</thickness>"
                                            "<style>2</style>"), says="style is 2")
        self.assert_found("thickness", item("line", "<length>9</length>"))
        self.assert_found("style", item("line", LINE + "<style>-1</style>"))
        self.assert_found("length", item("line", "<thickness>1</thickness>"), says="length is -1")

    def test_good_items_of_every_class_are_passed(self):
        shape = "<x>9</x><y>9</y><width>9</width><height>9</height><thickness>1</thickness>"
        self.assert_silent(item("rectangle", shape, "r") + item("ellipse", shape, "e") +
                           item("line", LINE, "l") + text_in("Liberation Sans") +
                           item("barcode", BARCODE + "<height>50</height><text>a</text>", "b"))

    def test_hidden_items_are_looked_at_too(self):
        self.assert_found("length", item("line", "<thickness>1</thickness><hidden>1</hidden>"))

    def test_each_finding_has_the_line_of_its_item(self):
        found = self.findings(layout(item("line", item_id="a") + "\n" +
                                     text_in("No Such Font", "b") + "\n" +
                                     item("image", "<filepath>x.png</filepath>", "c")))
        self.assertEqual([(finding["line"], finding["item"], finding["code"]) for finding in found],
                         [(5, "a", "thickness"), (5, "a", "length"), (8, "b", "font-substituted"),
                          (11, "c", "image-missing")])


class HostileNames(CheckTest):
    # Each of these reads like the end of one message and the beginning of another.
    NAMES = ("a; b", "a: null font; ", "x: invalid length(1); Line item id=y", "%1 %2 %3", ": ", "; ",
             "a) using default(b); ", "\ufffc")

    def test_ids_may_hold_whatever_messages_hold(self):
        for name in self.NAMES:
            with self.subTest(name=name):
                found = self.findings(layout(item("line", item_id=name) +
                                             text_in("No Such Font", name + "2")))
                self.assertEqual([(finding["code"], finding["item"]) for finding in found],
                                 [("thickness", name), ("length", name),
                                  ("font-substituted", name + "2")])

    def test_values_may_hold_whatever_messages_hold(self):
        for name in self.NAMES:
            with self.subTest(name=name):
                found = self.findings(layout(
                    text_in(f"a{name}b") + item("image", f"<filepath>d/{name}</filepath>", "i") +
                    item("line", item_id="l")))
                self.assertEqual([finding["code"] for finding in found],
                                 ["font-substituted", "image-missing", "thickness", "length"])
                self.assertIn(f'"a{name}b"', found[0]["text"])


if __name__ == "__main__":
    unittest.main()
