"""check: placeholders without a value, and values without a placeholder."""

import unittest

from support import layout, text_item
from support.checks import CheckTest


class Unset(CheckTest):
    def test_a_placeholder_without_a_value_is_told_with_its_line(self):
        found = self.assert_found("placeholder-unset", text_item("one\ntwo %name% %\nthree"), line=6,
                                  says="%name% in text has no value")
        self.assertEqual((found["kind"], found["item"]), ("text", "greeting"))

    def test_those_of_numbers_attributes_and_the_canvas_are_told(self):
        self.assert_found("placeholder-unset", text_item("a", more="<x>%left%</x>"),
                          says="%left% in x")
        self.assert_found("placeholder-unset", text_item("a", "%id%"), says="%id% in id")
        found = self.assert_found("placeholder-unset", "", says="%dpi% in dpi",
                                  canvas="<width>9</width><height>9</height><dpi>%dpi%</dpi>")
        self.assertEqual(found["kind"], "canvas")

    def test_each_of_a_text_is_told(self):
        self.assertEqual(self.codes(layout(text_item("%a%%b% and %c%"))), ["placeholder-unset"] * 3)

    def test_one_that_got_a_value_is_fine(self):
        self.assert_silent(text_item("%name%"), "--tag", "name=x")
        self.assert_silent(text_item("a %name%"), "--tag", "name=")

    def test_percent_signs_are_no_placeholders(self):
        for text in ("100 %", "5 % to 10 %", "50%", "10%, 20%", "10%/20%", "%%", "a %\nb%",
                     "https://example.org/?q=a%20b%20c"):
            with self.subTest(text=text):
                self.assert_silent(text_item(text))

    def test_comments_hold_no_placeholders(self):
        self.assert_silent("<!-- fill in %name% -->" + text_item("a"))

    def test_the_value_of_an_object_holds_no_placeholders(self):
        self.assert_silent(text_item("a"), "--set", "greeting.text=%name%")

    def test_a_text_that_a_value_replaced_is_not_looked_at(self):
        self.assert_silent(text_item("%name%"), "--set", "greeting.text=a")

    def test_what_follows_from_a_missing_value_is_not_told(self):
        items = text_item("%name% and a long tail", more="<width>9</width><x>%left%</x>")
        self.assertEqual(set(self.codes(layout(items))), {"placeholder-unset"})
        barcode = ('<VelnorItem class="barcode" id="b"><type>13</type><text>%code%</text>'
                   "</VelnorItem>")
        self.assertEqual(self.codes(layout(barcode)), ["placeholder-unset"])
        image = ('<VelnorItem class="image" id="i"><filepath>%logo%.png</filepath></VelnorItem>')
        self.assertEqual(self.codes(layout(image)), ["placeholder-unset"])


class Unused(CheckTest):
    def test_a_value_that_the_document_has_no_placeholder_for_is_told(self):
        found = self.assert_found("tag-unused", text_item("%name%"), "--tag", "name=a", "--tag",
                                  "nmae=b", says="there is no %nmae%")
        self.assertEqual(found["kind"], "document")

    def test_a_placeholder_inside_another_value_is_one(self):
        self.assert_silent(text_item("%outer%"), "--tag", "outer=a %inner%", "--tag", "inner=b")

    def test_a_name_beyond_ascii_is_found(self):
        self.assert_silent(text_item("%größe%"), "--tag", "größe=b")


if __name__ == "__main__":
    unittest.main()
